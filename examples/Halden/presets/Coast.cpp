#include "examples/Halden/presets/Banks.h"

namespace halden {

const char* const coastBank = R"(
Init: keys
  volume -3

Sea Glass: pad
  osc1Wave Saw, osc1Pan -0.4, osc2Wave Pulse, osc2Semi 12, osc2Level -9, osc2Pan 0.4, osc2Width 35
  unisonOn On, unisonVoices 4, unisonDetune 24, unisonSpread 90, subLevel -12, noiseLevel -40
  cutoff 620, resonance 22, filterEnvelope 22
  filterAttack 1400, filterDecay 3800, filterSustain 55, filterRelease 2600
  ampAttack 700, ampDecay 3000, ampSustain 85, ampRelease 2800
  lfo1Rate 0.13, lfo1Cutoff 6, lfo1Width 40, lfo2Pitch 5, velocityLevel 30
  chorusMix 60, chorusRate 0.28, chorusDepth 55
  delayOn On, delayDivision 1/8D, delayMix 18, reverbDecay 5.5, reverbMix 42, volume -7

Low Tide: bass
  osc1Wave Saw, osc1Pan 0, osc2Wave Square, osc2Fine 4, osc2Level -7
  osc2Pan 0, subLevel -6, cutoff 320, resonance 34, filterDrive 12, filterEnvelope 34
  filterAttack 1, filterDecay 520, filterSustain 25, filterRelease 180
  ampAttack 1, ampDecay 1500, ampSustain 80, ampRelease 140
  keytrack 30, voiceMode Legato, glide 55, velocityCutoff 18, lfo1Cutoff 0
  driveOn On, driveAmount 10, driveTone 4200, chorusOn Off, reverbMix 6, reverbDecay 0.8
  volume -0.5

Signal Fire: lead
  osc1Wave Saw, osc1Pan 0, osc2Wave Square, osc2Semi -12, osc2Fine 3, osc2Level -8, osc2Pan 0
  unisonOn On, unisonVoices 3, unisonDetune 14, unisonSpread 60
  cutoff 1500, resonance 30, filterDrive 9, filterEnvelope 20, filterDecay 900, filterSustain 45
  ampAttack 3, ampSustain 90, ampRelease 260, voiceMode Legato, glide 70
  lfo2Pitch 16, lfo2Fade 0.6, wheelVibrato 60, driveOn On, driveAmount 14, driveTone 6500
  chorusMix 25, delayOn On, delayDivision 1/8D, delayFeedback 42, delayMix 26, reverbMix 20
  volume -2.5

Rain on Tin: pluck
  osc1Wave Triangle, osc1Pan -0.2, osc2Wave Pulse, osc2Semi 12, osc2Width 22, osc2Level -11
  osc2Pan 0.3, noiseLevel -26, subLevel -48, filterType LP 12, cutoff 420, resonance 38
  filterEnvelope 44, filterAttack 1, filterDecay 420, filterSustain 0, filterRelease 420
  ampAttack 1, ampDecay 1100, ampSustain 0, ampRelease 900, velocityLevel 75, velocityCutoff 24
  keytrack 70, lfo2Pitch 0, delayOn On, delayDivision 1/16D, delayFeedback 55, delayTone 5200
  delayMix 38, reverbDecay 3, reverbMix 30, volume 3

Gull Arc: lead
  osc1Wave Triangle, osc1Pan 0, osc1Level -1, osc2Wave Sine, osc2Semi 12, osc2Fine 2, osc2Level -12
  osc2Pan 0, subLevel -48, noiseLevel -38, fmAmount 14, fmRatio 2
  filterType LP 12, cutoff 2200, resonance 8, filterDrive 2, filterEnvelope 10, filterDecay 700
  ampAttack 18, ampDecay 900, ampSustain 88, ampRelease 320, voiceMode Legato, glide 120
  lfo1Cutoff 0, lfo2Rate 5.6, lfo2Pitch 22, lfo2Fade 0.9, wheelVibrato 70
  chorusMix 18, delayOn On, delayDivision 1/4, delayFeedback 38, delayTone 3000, delayMix 24
  reverbDecay 3.4, reverbMix 30

Breakwater: bass
  osc1Wave Square, osc1Pan 0, osc2Wave Saw, osc2Fine -6, osc2Level -5
  osc2Pan 0, subLevel -4, cutoff 240, resonance 12, filterDrive 18, filterEnvelope 30
  filterAttack 1, filterDecay 900, filterSustain 18, filterRelease 200
  ampAttack 1, ampDecay 1800, ampSustain 70, ampRelease 160, voiceMode Mono, lfo1Cutoff 0
  lfo2Pitch 0, driveOn On, driveAmount 16, driveTone 2800, driveMix 80, chorusOn Off, reverbOn Off
  volume 0.5

Driftwood Keys: keys
  osc1Wave Triangle, osc1Pan -0.1, osc2Wave Triangle, osc2Semi 12, osc2Fine 3, osc2Level -14
  osc2Pan 0.2, fmAmount 20, fmRatio 3, subLevel -22, filterType LP 12, cutoff 700, resonance 6
  filterEnvelope 30, filterAttack 1, filterDecay 1900, filterSustain 12, filterRelease 400
  ampAttack 1, ampDecay 6000, ampSustain 0, ampRelease 380, velocityLevel 65, velocityCutoff 28
  keytrack 75, lfo1Cutoff 0, lfo2Pitch 3, lfo2Fade 0, lfo2Rate 0.7
  chorusRate 0.6, chorusDepth 25, chorusMix 35, reverbDecay 1.6, reverbMix 20, volume 0

Foghorn: brass
  osc1Wave Saw, osc1Octave -1, osc1Pan -0.1, osc2Wave Saw, osc2Semi 7, osc2Fine 5, osc2Level -4
  osc2Pan 0.1, unisonOn On, unisonVoices 3, unisonDetune 16, unisonSpread 80, subLevel -9
  cutoff 190, resonance 20, filterDrive 12, filterEnvelope 40, filterAttack 240, filterDecay 2600
  filterSustain 62, filterRelease 700, ampAttack 90, ampSustain 95, ampRelease 620
  lfo2Pitch 6, lfo2Fade 1.5, driveOn On, driveAmount 8, driveTone 3600
  reverbPredelay 40, reverbDecay 4.8, reverbTone 3000, reverbMix 38, volume -6

Undertow: bass
  osc1Wave Sine, osc1Pan 0, osc1Level 0, osc2On Off, subLevel -10
  fmAmount 34, fmRatio 1, filterType LP 12, cutoff 520, resonance 4, filterEnvelope 26
  filterAttack 1, filterDecay 1200, filterSustain 20, filterRelease 240
  ampAttack 2, ampDecay 3200, ampSustain 60, ampRelease 180, voiceMode Legato, glide 85
  lfo1Cutoff 0, lfo2Pitch 0, driveOn On, driveAmount 6, driveTone 5000, chorusOn Off, reverbOn Off
  volume -1.5

Tidepool: pluck
  osc1Wave Sine, osc1Pan -0.3, osc2Wave Sine, osc2Semi 19, osc2Level -15, osc2Pan 0.35
  fmAmount 40, fmRatio 4, subLevel -48, filterOn Off
  ampAttack 1, ampDecay 2400, ampSustain 0, ampRelease 900, velocityLevel 70, lfo2Pitch 0
  lfo1Rate 0.2, lfo1Level 0, delayOn On, delayDivision 1/8T, delayFeedback 58, delayTone 7000
  delayMix 34, chorusRate 0.2, chorusMix 50, reverbDecay 4, reverbMix 34, volume -2.5

Shell Chime: bell
  osc1Wave Sine, osc1Octave +1, osc1Pan -0.2, osc2Wave Sine, osc2Semi 19, osc2Fine 6, osc2Level -12
  osc2Pan 0.3, fmAmount 46, fmRatio 3.5, subLevel -48, filterOn Off, velocityLevel 60
  ampAttack 1, ampDecay 6000, ampSustain 0, ampRelease 4200, lfo2Pitch 2, lfo2Rate 0.4, lfo2Pan 30
  chorusRate 0.15, chorusDepth 20, chorusMix 35, delayOn On, delayMix 16, reverbDecay 6
  reverbTone 9000, reverbMix 40, volume -4.5

Neap Strings: strings
  osc1Wave Saw, osc1Pan -0.5, osc2Wave Saw, osc2Fine -11, osc2Level -3, osc2Pan 0.5
  unisonOn On, unisonVoices 3, unisonDetune 20, unisonSpread 100, subLevel -30
  cutoff 1700, resonance 6, filterDrive 2, filterEnvelope 8, filterAttack 400, filterDecay 2000
  filterSustain 60, filterRelease 900, ampAttack 240, ampDecay 2000, ampSustain 88, ampRelease 900
  lfo1Rate 0.22, lfo1Cutoff 2, lfo2Rate 5.4, lfo2Pitch 7, lfo2Fade 1.2
  chorusRate 0.55, chorusDepth 60, chorusMix 65, reverbDecay 3.2, reverbMix 32, volume -5.5

Harbinger Swell: pad
  osc1Wave Saw, osc1Octave -1, osc1Pan -0.3, osc2Wave Square, osc2Semi 7, osc2Fine -4, osc2Level -10
  osc2Pan 0.3, unisonOn On, unisonVoices 5, unisonDetune 34, unisonSpread 100, noiseLevel -36
  cutoff 260, resonance 28, filterEnvelope 34, filterAttack 2600, filterDecay 5000
  filterSustain 70, filterRelease 3000, ampAttack 1500, ampSustain 100, ampRelease 3600
  lfo1Rate 0.09, lfo1Cutoff 5, lfo2Pitch 4, driveOn On, driveAmount 6, driveTone 5000, driveMix 60
  reverbPredelay 30, reverbDecay 8, reverbTone 4200, reverbMix 46, volume -6

Kelp Forest: motion pad
  osc1Wave Pulse, osc1Width 40, osc1Pan -0.6, osc2Wave Pulse, osc2Width 60, osc2Semi -12
  osc2Level -8, osc2Pan 0.6, noiseLevel -34, filterType Band, cutoff 700, resonance 40
  filterEnvelope 0, keytrack 60, ampAttack 380, ampSustain 95, ampRelease 1900
  lfo1Wave Triangle, lfo1Rate 0.31, lfo1Cutoff 16, lfo1Width 50
  lfo2Wave Random, lfo2Rate 0.9, lfo2Pitch 9, lfo2Pan 70, lfo2Fade 0
  delayOn On, delayDivision 1/4D, delayFeedback 52, delayMix 26, reverbDecay 5, reverbMix 34
  volume -4.5

Pebble Run: pluck
  osc1Wave Square, osc1Pan -0.15, osc2Wave Triangle, osc2Semi 24, osc2Level -16, osc2Pan 0.25
  noiseLevel -30, subLevel -26, cutoff 300, resonance 26, filterEnvelope 50, velocityCutoff 26
  filterAttack 1, filterDecay 520, filterSustain 0, filterRelease 260
  ampAttack 1, ampDecay 1500, ampSustain 0, ampRelease 300, velocityLevel 70, lfo1Cutoff 0
  lfo2Pitch 0, chorusMix 20, delayOn On, delayDivision 1/16, delayFeedback 36, delayMix 22
  reverbDecay 1.2, reverbMix 18, volume 1

Sandbar: bass
  osc1Wave Triangle, osc1Pan 0, osc1Level 0, osc2Wave Triangle
  osc2Fine 3, osc2Level -12, osc2Pan 0, subLevel -7, filterType LP 12, cutoff 380, resonance 10
  filterEnvelope 16, filterAttack 1, filterDecay 700, filterSustain 30
  ampAttack 2, ampDecay 4200, ampSustain 35, ampRelease 220, voiceMode Mono, glide 30
  velocityLevel 55, lfo1Cutoff 0, lfo2Pitch 0, chorusOn Off, reverbMix 5, reverbDecay 0.6
  volume 0.5

Lighthouse: lead
  osc1Wave Pulse, osc1Width 28, osc1Pan -0.1, osc2Wave Saw, osc2Semi 12, osc2Fine -5, osc2Level -7
  osc2Pan 0.1, subLevel -24, cutoff 2600, resonance 20, filterDrive 6, filterEnvelope 14
  filterDecay 1200, filterSustain 50, ampAttack 6, ampSustain 92, ampRelease 420
  voiceMode Mono, glide 45, lfo1Wave Sine, lfo1Sync On, lfo1Division 1/2, lfo1Cutoff 7, lfo1Width 34
  lfo2Pitch 12, lfo2Fade 0.5, delayOn On, delayDivision 1/4, delayFeedback 50, delayMix 30
  reverbDecay 3.6, reverbMix 26, volume -1.5

Cold Current: pad
  osc1Wave Sine, osc1Pan -0.3, osc2Wave Triangle, osc2Semi 12, osc2Fine 8, osc2Level -9, osc2Pan 0.3
  fmAmount 26, fmRatio 2, unisonOn On, unisonVoices 3, unisonDetune 12, unisonSpread 100
  noiseLevel -32, filterType High, cutoff 180, resonance 14, filterEnvelope 0
  ampAttack 900, ampSustain 92, ampRelease 3200, lfo1Rate 0.11, lfo1Cutoff 9
  lfo2Wave Triangle, lfo2Rate 0.24, lfo2Pitch 8, lfo2Pan 50, lfo2Fade 0
  chorusRate 0.18, chorusDepth 70, chorusMix 60, reverbDecay 9, reverbTone 7000, reverbMix 48
  volume -10.5

Storm Glass: effects
  osc1Wave Noise, osc1Level -6, osc1Pan -0.3, osc2Wave Saw, osc2Semi -24, osc2Level -12, osc2Pan 0.3
  subLevel -18, filterType LP 24, cutoff 420, resonance 52, filterEnvelope 28, filterAttack 3000
  filterDecay 6000, filterSustain 20, filterRelease 5000, ampAttack 1200, ampSustain 100
  ampRelease 5000, lfo1Wave Random, lfo1Rate 1.6, lfo1Cutoff 14, lfo1Level 30
  lfo2Wave Random, lfo2Rate 0.6, lfo2Pitch 40, lfo2Pan 80, lfo2Fade 0
  driveOn On, driveAmount 9, driveTone 5000, delayOn On, delayDivision 1/2, delayFeedback 60
  delayMix 28, reverbPredelay 60, reverbDecay 10, reverbMix 45, volume -4.5

Barnacle: bass
  osc1Wave Saw, osc1Pan 0, osc2Wave Saw, osc2Fine 14, osc2Level -4
  osc2Pan 0, unisonOn On, unisonVoices 3, unisonDetune 30, unisonSpread 70, subLevel -5
  cutoff 700, resonance 22, filterDrive 14, filterEnvelope 10, filterDecay 500, filterSustain 40
  ampAttack 2, ampSustain 90, ampRelease 180, voiceMode Mono, glide 40
  lfo1Wave Sine, lfo1Sync On, lfo1Division 1/8, lfo1Cutoff 20, lfo2Pitch 0
  driveOn On, driveAmount 20, driveTone 4200, driveMix 85, chorusOn Off, reverbMix 6, reverbDecay 1
  volume 0

Spindrift: strings motion
  osc1Wave Saw, osc1Pan -0.4, osc2Wave Triangle, osc2Semi 12, osc2Fine 5, osc2Level -8, osc2Pan 0.4
  noiseLevel -34, cutoff 1400, resonance 14, filterEnvelope 12, filterAttack 60, filterSustain 50
  ampAttack 60, ampSustain 85, ampRelease 700, lfo1Wave Triangle, lfo1Sync On, lfo1Division 1/16
  lfo1Cutoff 4, lfo1Level 72, lfo2Pitch 6, lfo2Pan 35
  chorusRate 0.7, chorusMix 55, delayOn On, delayDivision 1/8D, delayMix 24, delayFeedback 46
  reverbDecay 4.2, reverbMix 34, volume -3.5
)";

}  // namespace halden
