#include "examples/Halden/presets/Banks.h"

namespace halden {

const char* const harbourBank = R"(
Tine House: keys
  osc1Wave Sine, osc1Pan 0, osc1Level 0, osc2Wave Sine, osc2Semi 24, osc2Fine 2, osc2Level -24
  osc2Pan 0, fmAmount 32, fmRatio 1, subLevel -30, filterType LP 12, cutoff 900, resonance 4
  filterDrive 4, filterEnvelope 26, filterAttack 1, filterDecay 2200, filterSustain 10
  filterRelease 500, ampAttack 1, ampDecay 5200, ampSustain 0, ampRelease 420
  velocityLevel 70, velocityCutoff 30, keytrack 80, lfo1Cutoff 0, lfo2Pitch 0, lfo2Rate 4.6
  lfo2Pan 45, chorusMix 30, reverbMix 18, volume -2.5

Lantern Organ: keys
  osc1Wave Sine, osc1Pan 0, osc1Level -2, osc2Wave Triangle, osc2Semi 19, osc2Fine 0, osc2Level -10
  osc2Pan 0, subLevel -5, fmAmount 18, fmRatio 4, filterOn Off, velocityLevel 0
  ampAttack 4, ampDecay 200, ampSustain 100, ampRelease 60
  lfo1Rate 6.4, lfo1Cutoff 0, lfo1Level 18, lfo2Rate 6.2, lfo2Pitch 7, lfo2Pan 30, lfo2Fade 0
  driveOn On, driveAmount 8, driveTone 6000, driveMix 70, chorusRate 0.9, chorusMix 55, reverbMix 24
  volume -6.5

Brass Gate: brass
  osc1Wave Saw, osc1Pan -0.15, osc2Wave Saw, osc2Fine -9, osc2Level -3, osc2Pan 0.15
  cutoff 380, resonance 14, filterDrive 6, filterEnvelope 38, filterAttack 70, filterDecay 1300
  filterSustain 58, filterRelease 320, ampAttack 28, ampSustain 88, ampRelease 260
  velocityCutoff 26, lfo2Pitch 8, lfo2Fade 1.2, chorusMix 30, reverbDecay 1.8, reverbMix 24
  volume -5

Night Ferry: pad motion
  osc1Wave Pulse, osc1Width 30, osc1Pan -0.5, osc2Wave Saw, osc2Semi 7, osc2Fine -6, osc2Level -10
  osc2Pan 0.5, filterType Band, cutoff 1100, resonance 46, filterEnvelope 0
  ampAttack 160, ampSustain 90, ampRelease 1600, lfo1Wave Saw, lfo1Sync On, lfo1Division 1/8
  lfo1Cutoff 20, lfo1Level 55, lfo2Wave Random, lfo2Rate 0.5, lfo2Pitch 6, lfo2Pan 60
  delayOn On, delayDivision 1/4D, delayFeedback 60, delayMix 34, reverbDecay 6.5, reverbMix 36
  volume 3

Wind Index: effects
  osc1Wave Noise, osc1Level -2, osc2On Off, subLevel -48, filterType Band, cutoff 900, resonance 82
  keytrack 100, filterEnvelope 6, filterAttack 1800, ampAttack 900, ampSustain 100, ampRelease 3200
  lfo1Wave Random, lfo1Rate 0.7, lfo1Cutoff 7, lfo2Wave Random, lfo2Rate 0.3, lfo2Pan 90
  delayOn On, delayMix 30, delayFeedback 65, reverbDecay 9, reverbMix 50, volume 3.5

Crane Bass: bass
  osc1Wave Pulse, osc1Width 24, osc1Pan 0, osc2Wave Square, osc2Fine -3
  osc2Level -9, osc2Pan 0, subLevel -6, cutoff 180, resonance 44, filterDrive 9, filterEnvelope 42
  filterAttack 1, filterDecay 380, filterSustain 8, filterRelease 120
  ampAttack 1, ampDecay 1300, ampSustain 55, ampRelease 110, voiceMode Mono, velocityCutoff 20
  lfo1Cutoff 0, lfo2Pitch 0, driveOn On, driveAmount 9, driveTone 5200, chorusOn Off, reverbOn Off
  volume 1

Rope and Pulley: pluck
  osc1Wave Saw, osc1Pan -0.2, osc2Wave Saw, osc2Semi 12, osc2Fine 4, osc2Level -10, osc2Pan 0.2
  subLevel -26, cutoff 260, resonance 12, filterEnvelope 52, filterAttack 1, filterDecay 700
  filterSustain 0, filterRelease 500, ampAttack 1, ampDecay 2200, ampSustain 0, ampRelease 520
  velocityLevel 60, velocityCutoff 22, keytrack 65, lfo1Cutoff 0, lfo2Pitch 0
  chorusRate 0.35, chorusMix 40, delayOn On, delayDivision 1/8, delayFeedback 34, delayMix 20
  reverbDecay 2, reverbMix 22, volume 0

Customs Clerk: keys
  osc1Wave Square, osc1Pan -0.1, osc1Level -4, osc2Wave Pulse, osc2Width 20, osc2Fine 4, osc2Level -8
  osc2Pan 0.1, subLevel -40, filterType LP 12, cutoff 1100, resonance 10, filterEnvelope 20
  filterAttack 1, filterDecay 900, filterSustain 15, ampAttack 1, ampDecay 3000, ampSustain 15
  ampRelease 160, velocityLevel 60, velocityCutoff 20, lfo1Cutoff 0, lfo2Pitch 0
  chorusRate 0.8, chorusDepth 30, chorusMix 45, reverbDecay 0.9, reverbMix 14, volume -0.5

Iron Hull: bass
  osc1Wave Saw, osc1Octave -1, osc1Pan 0, osc2Wave Saw, osc2Fine 9, osc2Level -2
  osc2Pan 0, unisonOn On, unisonVoices 4, unisonDetune 26, unisonSpread 55, subLevel -4
  cutoff 340, resonance 8, filterDrive 20, filterEnvelope 20, filterAttack 20, filterDecay 1800
  filterSustain 35, ampAttack 4, ampSustain 92, ampRelease 260, voiceMode Mono
  lfo1Rate 0.16, lfo1Cutoff 4, lfo2Pitch 0, driveOn On, driveAmount 18, driveTone 3200
  chorusOn Off, reverbMix 8, reverbDecay 1.4, volume 0

Port Bell: bell
  osc1Wave Sine, osc1Pan -0.25, osc2Wave Triangle, osc2Semi 24, osc2Fine -8, osc2Level -18
  osc2Pan 0.25, fmAmount 62, fmRatio 1.41, subLevel -30, filterType LP 12, cutoff 2400, resonance 4
  filterEnvelope 18, filterDecay 4000, filterSustain 0, velocityLevel 65, velocityCutoff 24
  ampAttack 1, ampDecay 6000, ampSustain 0, ampRelease 3600, lfo1Cutoff 0, lfo2Pitch 0
  chorusRate 0.12, chorusMix 25, reverbPredelay 20, reverbDecay 5, reverbMix 38, volume -3

Quayside Strings: strings
  osc1Wave Saw, osc1Pan -0.35, osc2Wave Pulse, osc2Width 42, osc2Fine 9, osc2Level -6, osc2Pan 0.35
  subLevel -20, cutoff 1200, resonance 8, filterEnvelope 10, filterAttack 120, filterSustain 55
  ampAttack 110, ampSustain 90, ampRelease 520, velocityCutoff 18, lfo1Rate 0.5, lfo1Width 30
  lfo1Cutoff 1, lfo2Rate 5.8, lfo2Pitch 9, lfo2Fade 0.7, chorusRate 0.6, chorusDepth 65, chorusMix 70
  reverbDecay 2.4, reverbMix 26, volume -5

Dock Leveller: bass
  osc1Wave Square, osc1Octave -1, osc1Pan 0, osc2Wave Triangle, osc2Level -8, osc2Pan 0
  subLevel -3, cutoff 150, resonance 30, filterDrive 6, filterEnvelope 36, filterAttack 1
  filterDecay 260, filterSustain 5, ampAttack 1, ampDecay 900, ampSustain 40, ampRelease 90
  voiceMode Mono, glide 18, velocityLevel 40, lfo1Cutoff 0, lfo2Pitch 0
  driveOn On, driveAmount 12, driveTone 6000, chorusOn Off, reverbOn Off, volume 1

Mooring Line: lead
  osc1Wave Saw, osc1Pan 0, osc2Wave Saw, osc2Semi 7, osc2Fine -2, osc2Level -9, osc2Pan 0
  subLevel -18, cutoff 1000, resonance 40, filterDrive 12, filterEnvelope 24, filterAttack 8
  filterDecay 1400, filterSustain 40, ampAttack 4, ampSustain 90, ampRelease 300
  voiceMode Legato, glide 110, lfo2Pitch 14, lfo2Fade 0.4, wheelVibrato 80
  driveOn On, driveAmount 18, driveTone 5200, delayOn On, delayDivision 1/8, delayFeedback 40
  delayMix 22, reverbMix 16, volume -1.5

Steam Whistle: effects
  osc1Wave Sine, osc1Octave +2, osc1Pan -0.2, osc1Level 0, osc2Wave Sine, osc2Semi 4, osc2Fine 20
  osc2Level -3, osc2Pan 0.2, noiseLevel -8, subLevel -48, filterType Band, cutoff 1700
  resonance 10, filterEnvelope 6, filterAttack 200, keytrack 100, ampAttack 140, ampSustain 95
  ampRelease 900, glide 260, voiceMode Legato, lfo1Cutoff 0, lfo2Rate 6.6, lfo2Pitch 30, lfo2Fade 0.2
  delayOn On, delayDivision 1/4, delayFeedback 48, delayMix 26, reverbDecay 6, reverbMix 42
  volume 0.5

Container Yard: motion
  osc1Wave Square, osc1Octave -1, osc1Pan -0.3, osc2Wave Pulse, osc2Width 15, osc2Semi 12
  osc2Level -8, osc2Pan 0.3, subLevel -10, noiseLevel -28, cutoff 500, resonance 48
  filterEnvelope 18, filterAttack 1, filterDecay 500, filterSustain 30, ampAttack 2, ampSustain 85
  ampRelease 300, lfo1Wave Pulse, lfo1Sync On, lfo1Division 1/16D, lfo1Cutoff 22, lfo1Level 60
  lfo2Wave Square, lfo2Sync On, lfo2Beats 2, lfo2Pitch 0, lfo2Pan 60
  driveOn On, driveAmount 10, delayOn On, delayDivision 1/8D, delayFeedback 50, delayMix 24
  reverbDecay 1.4, reverbMix 18, volume -1.5

Sodium Light: pad
  osc1Wave Saw, osc1Pan -0.5, osc2Wave Saw, osc2Semi -12, osc2Fine 12, osc2Level -6, osc2Pan 0.5
  unisonOn On, unisonVoices 3, unisonDetune 40, unisonSpread 100, subLevel -16
  cutoff 800, resonance 16, filterDrive 8, filterEnvelope 14, filterAttack 1800, filterSustain 60
  filterRelease 2400, ampAttack 450, ampSustain 92, ampRelease 2200, lfo1Rate 0.17, lfo1Cutoff 5
  lfo2Wave Random, lfo2Rate 1.1, lfo2Pitch 11, lfo2Fade 0
  driveOn On, driveAmount 9, driveTone 3600, driveMix 55, chorusRate 0.4, chorusDepth 65, chorusMix 65
  reverbDecay 4.4, reverbTone 3600, reverbMix 34, volume -5.5

Pilot Boat: lead
  osc1Wave Square, osc1Pan 0, osc2Wave Square, osc2Semi 12, osc2Fine 3, osc2Level -12, osc2Pan 0
  subLevel -22, cutoff 1800, resonance 12, filterEnvelope 16, filterDecay 500, filterSustain 35
  ampAttack 2, ampDecay 1400, ampSustain 78, ampRelease 140, voiceMode Mono, glide 22
  lfo1Cutoff 0, lfo2Rate 6.1, lfo2Pitch 11, lfo2Fade 0.5, delayOn On, delayDivision 1/8D
  delayFeedback 36, delayMix 22, chorusMix 22, reverbMix 14, volume 1.5

Ballast: bass
  osc1Wave Sine, osc1Pan 0, osc1Level 0, osc2Wave Saw, osc2Level -18
  osc2Pan 0, subLevel -2, noiseLevel -48, cutoff 420, resonance 6, filterEnvelope 12
  filterDecay 900, ampAttack 3, ampDecay 2600, ampSustain 80, ampRelease 200, voiceMode Legato
  glide 45, lfo1Cutoff 0, lfo2Pitch 0, driveOn On, driveAmount 7, driveTone 1800, driveMix 70
  chorusOn Off, reverbOn Off, volume -2

Slipway: keys
  osc1Wave Saw, osc1Pan -0.2, osc2Wave Square, osc2Fine 6, osc2Level -8, osc2Pan 0.2, subLevel -20
  cutoff 600, resonance 14, filterEnvelope 28, filterAttack 1, filterDecay 1600, filterSustain 22
  ampAttack 2, ampDecay 3400, ampSustain 45, ampRelease 380, velocityLevel 55, velocityCutoff 24
  keytrack 60, lfo1Rate 0.8, lfo1Cutoff 1, lfo2Pitch 3
  chorusRate 0.5, chorusDepth 50, chorusMix 60, reverbDecay 1.7, reverbMix 20, volume -1.5

Harbour Choir: pad
  osc1Wave Pulse, osc1Width 38, osc1Pan -0.3, osc2Wave Triangle, osc2Semi 12, osc2Fine -7
  osc2Level -8, osc2Pan 0.3, unisonOn On, unisonVoices 4, unisonDetune 18, unisonSpread 90
  noiseLevel -30, subLevel -22, filterType Band, cutoff 950, resonance 24, keytrack 50
  filterEnvelope 5, filterAttack 700, ampAttack 520, ampSustain 90, ampRelease 1500
  lfo1Rate 0.27, lfo1Cutoff 3, lfo1Width 24, lfo2Rate 4.9, lfo2Pitch 10, lfo2Fade 1
  chorusRate 0.33, chorusDepth 60, chorusMix 65, reverbPredelay 25, reverbDecay 6, reverbMix 42
  volume 0

Tugboat Brass: brass
  osc1Wave Pulse, osc1Width 30, osc1Octave -1, osc1Pan -0.1, osc2Wave Saw, osc2Semi -12, osc2Fine 7
  osc2Level -5, osc2Pan 0.1, subLevel -14, cutoff 300, resonance 22, filterDrive 10
  filterEnvelope 34, filterAttack 40, filterDecay 900, filterSustain 48, filterRelease 240
  ampAttack 14, ampSustain 90, ampRelease 200, velocityLevel 50, velocityCutoff 30
  lfo1Cutoff 0, lfo2Pitch 6, lfo2Fade 1, driveOn On, driveAmount 11, driveTone 4600
  chorusMix 18, reverbDecay 1.3, reverbMix 18, volume -3.5

Radio Mast: effects
  osc1Wave Pulse, osc1Width 10, osc1Pan -0.4, osc2Wave Sine, osc2Semi 24, osc2Fine 31, osc2Level -8
  osc2Pan 0.4, fmAmount 70, fmRatio 5.3, noiseLevel -24, subLevel -48, filterType Notch, cutoff 1500
  resonance 10, filterEnvelope 0, ampAttack 40, ampSustain 90, ampRelease 1400
  lfo1Wave Random, lfo1Rate 7.5, lfo1Cutoff 34, lfo1Level 45, lfo2Wave Square, lfo2Rate 3.2
  lfo2Pitch 60, lfo2Pan 80, lfo2Fade 0, driveOn On, driveAmount 12, driveTone 4800
  delayOn On, delaySync Off, delayTime 133, delayFeedback 66, delayMix 34, reverbDecay 5, reverbMix 30
  volume -2.5
)";

}  // namespace halden
