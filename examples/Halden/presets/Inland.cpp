#include "examples/Halden/presets/Banks.h"

namespace halden {

const char* const inlandBank = R"(
Moorland: pad
  osc1Wave Triangle, osc1Pan -0.4, osc2Wave Saw, osc2Semi 12, osc2Fine 7, osc2Level -14, osc2Pan 0.4
  unisonOn On, unisonVoices 5, unisonDetune 22, unisonSpread 100, noiseLevel -36, subLevel -14
  cutoff 900, resonance 10, filterEnvelope 12, filterAttack 2000, filterSustain 65
  filterRelease 2800, ampAttack 1100, ampSustain 94, ampRelease 3000, lfo1Rate 0.08, lfo1Cutoff 7
  lfo2Wave Triangle, lfo2Rate 0.35, lfo2Pitch 6, lfo2Pan 40, chorusRate 0.22, chorusDepth 60
  chorusMix 55, reverbDecay 7, reverbTone 5000, reverbMix 42, volume -6

Peat: bass
  osc1Wave Saw, osc1Pan 0, osc2Wave Triangle, osc2Fine 5, osc2Level -6
  osc2Pan 0, subLevel -5, cutoff 210, resonance 18, filterDrive 15, filterEnvelope 22
  filterAttack 6, filterDecay 1400, filterSustain 30, ampAttack 5, ampDecay 2000, ampSustain 78
  ampRelease 240, voiceMode Legato, glide 65, lfo1Rate 0.3, lfo1Cutoff 2, lfo2Pitch 0
  driveOn On, driveAmount 13, driveTone 2200, driveMix 75, chorusOn Off, reverbMix 4, reverbDecay 0.7
  volume -0.5

Granite: bass
  osc1Wave Square, osc1Pan 0, osc2Wave Square, osc2Fine 2, osc2Level -5
  osc2Pan 0, fmAmount 24, fmRatio 0.5, subLevel -8, filterType LP 12, cutoff 420, resonance 20
  filterDrive 18, filterEnvelope 24, filterAttack 1, filterDecay 600, filterSustain 20
  ampAttack 1, ampDecay 1700, ampSustain 65, ampRelease 130, voiceMode Mono, velocityCutoff 16
  lfo1Cutoff 0, lfo2Pitch 0, driveOn On, driveAmount 22, driveTone 3800, driveMix 70
  chorusOn Off, reverbOn Off, volume 1.5

Heather: strings
  osc1Wave Saw, osc1Pan -0.45, osc1Level -5, osc2Wave Saw, osc2Semi 12, osc2Fine -9, osc2Level -8
  osc2Pan 0.45, unisonOn On, unisonVoices 3, unisonDetune 16, unisonSpread 90, subLevel -26
  noiseLevel -42, cutoff 2100, resonance 5, filterEnvelope 6, filterAttack 500, filterSustain 70
  ampAttack 320, ampSustain 86, ampRelease 1100, lfo1Rate 0.3, lfo1Cutoff 1.5, lfo2Rate 5.1
  lfo2Pitch 8, lfo2Fade 1.4, chorusRate 0.45, chorusDepth 55, chorusMix 60
  reverbDecay 4, reverbTone 6500, reverbMix 34, volume -4

Mill Race: motion
  osc1Wave Saw, osc1Pan -0.3, osc2Wave Square, osc2Semi -12, osc2Fine 4, osc2Level -9, osc2Pan 0.3
  subLevel -12, cutoff 420, resonance 38, filterDrive 8, filterEnvelope 10, filterSustain 40
  ampAttack 3, ampSustain 88, ampRelease 420, lfo1Wave Saw, lfo1Sync On, lfo1Division 1/16
  lfo1Cutoff 24, lfo1Level 45, lfo2Wave Triangle, lfo2Sync On, lfo2Beats 4, lfo2Pitch 3, lfo2Pan 55
  delayOn On, delayDivision 1/8D, delayFeedback 54, delayTone 4200, delayMix 30
  chorusMix 35, reverbDecay 2.6, reverbMix 24, volume -4.5

Tin Whistle: lead
  osc1Wave Sine, osc1Octave +1, osc1Pan 0, osc1Level 0, osc2Wave Triangle, osc2Semi 24, osc2Level -22
  osc2Pan 0, noiseLevel -30, subLevel -48, filterType LP 12, cutoff 3200, resonance 6
  filterEnvelope 8, filterAttack 30, filterDecay 400, filterSustain 60, keytrack 80
  ampAttack 30, ampDecay 600, ampSustain 85, ampRelease 180, voiceMode Legato, glide 35
  lfo1Cutoff 0, lfo2Rate 5.3, lfo2Pitch 14, lfo2Fade 0.6, wheelVibrato 60, chorusOn Off
  delayOn On, delayDivision 1/8, delayFeedback 24, delayMix 14, reverbDecay 2.8, reverbMix 30
  volume -2

Stone Circle: bell
  osc1Wave Sine, osc1Octave -1, osc1Pan -0.3, osc2Wave Sine, osc2Semi 17, osc2Fine 14, osc2Level -10
  osc2Pan 0.3, fmAmount 55, fmRatio 2.76, subLevel -24, filterOn Off, velocityLevel 60
  ampAttack 2, ampDecay 6000, ampSustain 10, ampRelease 5200, lfo1Cutoff 0, lfo1Level 0
  lfo2Wave Triangle, lfo2Rate 0.3, lfo2Pitch 4, lfo2Pan 60, lfo2Fade 0, chorusRate 0.1
  chorusMix 40, delayOn On, delayDivision 1/2, delayFeedback 45, delayMix 18
  reverbPredelay 35, reverbDecay 9, reverbTone 4500, reverbMix 46, volume -4

Drystone: pluck
  osc1Wave Pulse, osc1Width 18, osc1Pan -0.15, osc2Wave Saw, osc2Semi 12, osc2Level -16, osc2Pan 0.2
  noiseLevel -28, subLevel -22, filterType LP 12, cutoff 340, resonance 20, filterEnvelope 40
  filterAttack 1, filterDecay 320, filterSustain 0, filterRelease 200
  ampAttack 1, ampDecay 1300, ampSustain 0, ampRelease 220, velocityLevel 75, velocityCutoff 30
  keytrack 85, lfo1Cutoff 0, lfo2Pitch 0, chorusOn Off, delayOn On, delayDivision 1/16T
  delayFeedback 28, delayMix 16, reverbDecay 0.8, reverbMix 20, volume -1.5

Barley: keys
  osc1Wave Sine, osc1Pan -0.1, osc2Wave Triangle, osc2Semi 12, osc2Fine 4, osc2Level -12, osc2Pan 0.2
  fmAmount 22, fmRatio 7, subLevel -24, filterType LP 12, cutoff 1400, resonance 4
  filterEnvelope 22, filterAttack 1, filterDecay 1400, filterSustain 10
  ampAttack 1, ampDecay 6000, ampSustain 5, ampRelease 520, velocityLevel 65, velocityCutoff 26
  keytrack 70, lfo1Cutoff 0, lfo2Rate 3.8, lfo2Pitch 0, lfo2Pan 35, lfo2Fade 0
  chorusRate 0.4, chorusDepth 30, chorusMix 40, delayOn On, delayDivision 1/8D, delayFeedback 25
  delayMix 10, reverbDecay 2, reverbMix 22, volume -1.5

Ember Organ: keys
  osc1Wave Sine, osc1Pan -0.1, osc1Level -3, osc2Wave Sine, osc2Semi 12, osc2Fine 0, osc2Level -7
  osc2Pan 0.1, fmAmount 30, fmRatio 3, subLevel -8, filterType LP 12, cutoff 2600, resonance 4
  filterEnvelope 0, keytrack 50, velocityLevel 0, velocityCutoff 0
  ampAttack 3, ampDecay 300, ampSustain 100, ampRelease 70
  lfo1Rate 0.9, lfo1Cutoff 0, lfo1Level 12, lfo2Rate 0.9, lfo2Pitch 10, lfo2Pan 40, lfo2Fade 0
  driveOn On, driveAmount 13, driveTone 4200, driveMix 80, chorusRate 0.7, chorusDepth 45
  chorusMix 50, reverbDecay 2.4, reverbMix 26, volume -5

Wire Fence: pluck
  osc1Wave Saw, osc1Pan -0.3, osc2Wave Saw, osc2Fine -8, osc2Level -4, osc2Pan 0.3
  unisonOn On, unisonVoices 3, unisonDetune 22, unisonSpread 100, subLevel -30
  cutoff 480, resonance 16, filterEnvelope 40, filterAttack 1, filterDecay 900, filterSustain 8
  filterRelease 700, ampAttack 1, ampDecay 2600, ampSustain 12, ampRelease 600
  velocityLevel 50, velocityCutoff 18, keytrack 55, lfo1Cutoff 0, lfo2Pitch 0
  chorusMix 40, delayOn On, delayDivision 1/8D, delayFeedback 48, delayMix 30
  reverbDecay 3.2, reverbMix 28, volume -4

Long Barrow: pad
  osc1Wave Square, osc1Octave -1, osc1Pan -0.25, osc2Wave Sine, osc2Semi 7, osc2Fine 3, osc2Level -8
  osc2Pan 0.25, unisonOn On, unisonVoices 4, unisonDetune 15, unisonSpread 80, subLevel -6
  cutoff 330, resonance 24, filterDrive 6, filterEnvelope 16, filterAttack 3000, filterDecay 6000
  filterSustain 50, filterRelease 4000, ampAttack 1800, ampSustain 100, ampRelease 4500
  lfo1Wave Triangle, lfo1Rate 0.06, lfo1Cutoff 9, lfo2Rate 0.2, lfo2Pitch 5, lfo2Fade 0
  chorusRate 0.15, chorusMix 45, reverbPredelay 50, reverbDecay 11, reverbTone 2800, reverbMix 48
  volume -9.5

Plough: bass
  osc1Wave Saw, osc1Pan 0, osc2Wave Pulse, osc2Width 30, osc2Fine -5
  osc2Level -5, osc2Pan 0, subLevel -7, cutoff 130, resonance 52, filterDrive 10
  filterEnvelope 46, filterAttack 1, filterDecay 480, filterSustain 12, filterRelease 160
  ampAttack 1, ampDecay 1400, ampSustain 62, ampRelease 120, voiceMode Legato, glide 60
  velocityCutoff 24, lfo1Cutoff 0, lfo2Pitch 0, driveOn On, driveAmount 17, driveTone 6200
  chorusOn Off, delayOn On, delayDivision 1/16D, delayFeedback 20, delayMix 8, reverbOn Off
  volume 0

Starling Cloud: effects
  osc1Wave Pulse, osc1Width 12, osc1Octave +1, osc1Pan -0.5, osc1Level -8, osc2Wave Saw, osc2Semi 24
  osc2Fine -24, osc2Level -14, osc2Pan 0.5, unisonOn On, unisonVoices 5, unisonDetune 80
  unisonSpread 100, noiseLevel -30, subLevel -48, filterType Band, cutoff 1800, resonance 58
  filterEnvelope 0, ampAttack 700, ampSustain 95, ampRelease 2600
  lfo1Wave Random, lfo1Rate 4.2, lfo1Cutoff 26, lfo1Level 35
  lfo2Wave Random, lfo2Rate 2.4, lfo2Pitch 80, lfo2Pan 100, lfo2Fade 1.5
  delayOn On, delaySync Off, delayTime 290, delayFeedback 70, delayMix 40, reverbDecay 8, reverbMix 46
  volume 2

Weather Vane: lead
  osc1Wave Pulse, osc1Width 50, osc1Pan 0, osc2Wave Pulse, osc2Width 30, osc2Semi 7, osc2Fine 4
  osc2Level -12, osc2Pan 0, subLevel -20, cutoff 1300, resonance 34, filterDrive 6
  filterEnvelope 22, filterDecay 800, filterSustain 38, ampAttack 5, ampSustain 88, ampRelease 280
  voiceMode Legato, glide 90, lfo1Wave Triangle, lfo1Rate 0.7, lfo1Cutoff 2, lfo1Width 60
  lfo2Pitch 13, lfo2Fade 0.7, chorusMix 35, delayOn On, delayDivision 1/4T, delayFeedback 40
  delayMix 24, reverbDecay 2.6, reverbMix 22, volume 0.5

Frost Line: bell
  osc1Wave Triangle, osc1Octave +1, osc1Pan -0.35, osc2Wave Sine, osc2Semi 24, osc2Fine 9
  osc2Level -13, osc2Pan 0.35, fmAmount 36, fmRatio 5.2, noiseLevel -44, subLevel -48
  filterType High, cutoff 300, resonance 8, filterEnvelope 0, velocityLevel 65
  ampAttack 1, ampDecay 5000, ampSustain 0, ampRelease 3800, lfo1Cutoff 0, lfo2Pitch 3, lfo2Rate 0.5
  lfo2Pan 50, lfo2Fade 0, chorusRate 0.3, chorusMix 45, delayOn On, delayDivision 1/8T
  delayFeedback 60, delayTone 8000, delayMix 30, reverbDecay 7, reverbTone 9000, reverbMix 40
  volume -5.5

Threshing Floor: motion
  osc1Wave Square, osc1Octave -1, osc1Pan -0.2, osc2Wave Noise, osc2Level -20, osc2Pan 0.4
  subLevel -8, cutoff 360, resonance 46, filterDrive 14, filterEnvelope 26, filterAttack 1
  filterDecay 420, filterSustain 25, ampAttack 2, ampSustain 90, ampRelease 260
  lfo1Wave Square, lfo1Sync On, lfo1Division 1/8T, lfo1Cutoff 18, lfo1Level 80
  lfo2Wave Random, lfo2Rate 2.8, lfo2Pitch 5, lfo2Pan 45, driveOn On, driveAmount 16, driveTone 5200
  delayOn On, delayDivision 1/4T, delayFeedback 44, delayMix 22, reverbDecay 1.2, reverbMix 18
  volume -0.5

High Meadow: strings
  osc1Wave Saw, osc1Pan -0.3, osc1Level -6, osc2Wave Triangle, osc2Semi 19, osc2Fine 5, osc2Level -14
  osc2Pan 0.3, unisonOn On, unisonVoices 4, unisonDetune 14, unisonSpread 100, subLevel -34
  filterType LP 12, cutoff 2600, resonance 6, filterEnvelope 8, filterAttack 800, filterSustain 60
  ampAttack 480, ampSustain 90, ampRelease 1700, lfo1Rate 0.14, lfo1Cutoff 3
  lfo2Rate 4.7, lfo2Pitch 7, lfo2Fade 1.6, chorusRate 0.26, chorusDepth 70, chorusMix 60
  reverbPredelay 20, reverbDecay 5.6, reverbTone 8000, reverbMix 40, volume -4

Copper Kettle: brass
  osc1Wave Saw, osc1Pan -0.2, osc2Wave Pulse, osc2Width 35, osc2Fine -6, osc2Level -5, osc2Pan 0.2
  subLevel -20, cutoff 450, resonance 10, filterDrive 5, filterEnvelope 30, filterAttack 110
  filterDecay 1700, filterSustain 60, filterRelease 420, ampAttack 60, ampSustain 92, ampRelease 340
  velocityLevel 45, velocityCutoff 28, pressureCutoff 24, lfo1Cutoff 0, lfo2Rate 5, lfo2Pitch 7
  lfo2Fade 1.2, chorusRate 0.4, chorusMix 40, reverbDecay 2.6, reverbTone 4500, reverbMix 28
  volume -6

Owl Post: lead
  osc1Wave Sine, osc1Pan 0, osc1Level 0, osc2Wave Square, osc2Semi -12, osc2Level -18, osc2Pan 0
  fmAmount 16, fmRatio 1, noiseLevel -36, subLevel -22, filterType LP 12, cutoff 1100, resonance 12
  filterEnvelope 12, filterAttack 20, filterDecay 900, ampAttack 40, ampSustain 90, ampRelease 380
  voiceMode Legato, glide 170, lfo1Cutoff 0, lfo2Rate 4.8, lfo2Pitch 26, lfo2Fade 1, wheelVibrato 90
  delayOn On, delayDivision 1/4D, delayFeedback 42, delayTone 2600, delayMix 26
  chorusMix 25, reverbDecay 4.6, reverbMix 34, volume -3

Coal Seam: bass
  osc1Wave Saw, osc1Octave -1, osc1Pan 0, osc2Wave Square, osc2Semi -12, osc2Fine 6, osc2Level -8
  osc2Pan 0, subLevel -10, cutoff 500, resonance 26, filterDrive 22, filterEnvelope 14
  filterAttack 60, filterDecay 3000, filterSustain 40, ampAttack 10, ampSustain 95, ampRelease 420
  voiceMode Mono, lfo1Wave Random, lfo1Rate 2.2, lfo1Cutoff 8, lfo2Pitch 4, lfo2Fade 0
  driveOn On, driveAmount 26, driveTone 2600, driveMix 65, chorusOn Off, reverbMix 10, reverbDecay 1.6
  volume 5

Blue Slate: keys
  osc1Wave Pulse, osc1Width 35, osc1Pan -0.25, osc2Wave Pulse, osc2Width 65, osc2Fine 8, osc2Level -5
  osc2Pan 0.25, subLevel -18, cutoff 520, resonance 24, filterEnvelope 32, filterAttack 1
  filterDecay 1100, filterSustain 28, filterRelease 600, ampAttack 2, ampDecay 2600, ampSustain 55
  ampRelease 460, velocityLevel 50, velocityCutoff 22, lfo1Rate 0.33, lfo1Cutoff 2, lfo1Width 30
  lfo2Pitch 4, chorusRate 0.5, chorusDepth 60, chorusMix 70, reverbDecay 2.4, reverbMix 26
  volume -5
)";

}  // namespace halden
