#include "examples/Halden/presets/Banks.h"

namespace halden {

const char* const currentBank = R"(
Tidal Clock: sequence
  osc1Wave Saw, osc1Pan -0.2, osc2Wave Square, osc2Semi -12, osc2Level -9, osc2Pan 0.2, subLevel -12
  cutoff 380, resonance 42, filterDrive 6, filterEnvelope 8, filterSustain 30, lfo1Cutoff 0
  ampAttack 2, ampSustain 90, ampRelease 260, lfo2Pitch 0
  stepsOn On, stepsCutoff 30, stepsGlide 15
  step1 100, step2 -40, step3 20, step4 60, step5 -20, step6 80, step7 -60, step8 30
  step9 90, step10 -30, step11 0, step12 70, step13 -50, step14 40, step15 -10, step16 60
  delayOn On, delayDivision 1/8D, delayMix 22, delayFeedback 42, reverbMix 18, volume -5.5

Ebb and Flow: motion pad
  osc1Wave Saw, osc1Pan -0.4, osc2Wave Triangle, osc2Semi 12, osc2Fine 6, osc2Level -9, osc2Pan 0.4
  unisonOn On, unisonVoices 3, unisonDetune 22, unisonSpread 90, cutoff 900, resonance 14
  filterEnvelope 6, filterAttack 900, ampAttack 420, ampSustain 92, ampRelease 1800, lfo2Pitch 4
  curveOn On, curveDivision 1/8, curveLevel 85, curvePan 40
  curve1 20, curve2 55, curve3 90, curve4 100, curve5 80, curve6 40, curve7 15, curve8 10
  curve9 25, curve10 60, curve11 95, curve12 100, curve13 70, curve14 35, curve15 20, curve16 15
  chorusMix 60, chorusDepth 60, delayOn On, delayDivision 1/4D, delayMix 18
  reverbDecay 6, reverbMix 40, volume -4.5

Mill Wheel: sequence bass
  osc1Wave Saw, osc1Pan 0, osc2Wave Square, osc2Fine 5, osc2Level -7, osc2Pan 0, subLevel -6
  cutoff 260, resonance 36, filterDrive 12, filterEnvelope 20, filterAttack 1, filterDecay 600
  filterSustain 20, ampAttack 1, ampSustain 88, ampRelease 120, voiceMode Legato, lfo1Cutoff 0
  lfo2Pitch 0, stepsOn On, stepsCount 8, stepsPitch 12, stepsCutoff 12
  step1 0, step2 0, step3 100, step4 0, step5 25, step6 0, step7 58, step8 -17
  driveOn On, driveAmount 14, driveShape Tube, driveTone 5200, chorusOn Off, reverbMix 6

Ferry Lights: sequence
  osc1Wave Sine, osc1Pan -0.2, osc1Level 0, osc2Wave Triangle, osc2Semi 12, osc2Level -14
  osc2Pan 0.3, fmAmount 30, fmRatio 3, subLevel -34, filterOn Off, ampAttack 2, ampSustain 95
  ampRelease 700, lfo2Pitch 2, lfo2Pan 30, stepsOn On, stepsDivision 1/8, stepsCount 8
  stepsPitch 12, stepsCutoff 0, step1 0, step2 58, step3 100, step4 33, step5 58, step6 100
  step7 0, step8 83, curveOn On, curveDivision 1/8, curveCount 2, curveLevel 70, curve1 100
  curve2 35, delayOn On, delayDivision 1/8D, delayFeedback 52, delayMix 34, delayTone 7000
  reverbDecay 4.5, reverbMix 34, volume -10

Rip Current: sequence lead
  osc1Wave Square, osc1Pan 0, osc2Wave Saw, osc2Semi 7, osc2Level -10, osc2Pan 0, subLevel -14
  cutoff 700, resonance 50, filterDrive 9, filterEnvelope 14, filterDecay 500, ampAttack 2
  ampSustain 90, ampRelease 180, voiceMode Mono, glide 30, lfo1Cutoff 0, lfo2Pitch 6
  stepsOn On, stepsDivision 1/16, stepsCount 12, stepsCutoff 34, stepsPitch 0
  step1 90, step2 -20, step3 50, step4 -60, step5 100, step6 10, step7 -40, step8 70
  step9 -80, step10 60, step11 0, step12 30, driveOn On, driveShape Hard, driveAmount 10
  driveTone 4800, driveMix 60, delayOn On, delayDivision 1/16D, delayMix 24, reverbMix 16, volume -4

Pulse Beacon: motion keys
  osc1Wave Pulse, osc1Width 40, osc1Pan -0.25, osc2Wave Saw, osc2Semi 12, osc2Fine -4, osc2Level -10
  osc2Pan 0.25, subLevel -18, cutoff 1300, resonance 18, filterEnvelope 12, ampAttack 3
  ampSustain 88, ampRelease 320, lfo2Pitch 3, curveOn On, curveCount 8, curveLevel 100
  curveWidth 40, curve1 100, curve2 45, curve3 0, curve4 80, curve5 30, curve6 0, curve7 90
  curve8 20, chorusMix 40, delayOn On, delayDivision 1/8D, delayMix 26, reverbDecay 2.6
  reverbMix 26, volume -1.5

Drift Ice: motion pad
  osc1Wave Triangle, osc1Pan -0.5, osc2Wave Pulse, osc2Width 35, osc2Semi 19, osc2Level -16
  osc2Pan 0.5, fmAmount 18, fmRatio 2, noiseLevel -34, filterType Band, cutoff 1200, resonance 30
  filterEnvelope 0, ampAttack 700, ampSustain 95, ampRelease 2600, lfo1Rate 0.1, lfo1Cutoff 8
  stepsOn On, stepsDivision 1/2, stepsCount 6, stepsGlide 100, stepsCutoff 22
  step1 -60, step2 40, step3 -20, step4 90, step5 10, step6 -90
  curveOn On, curveDivision 1/4, curveLevel 40, curvePan 70, lfo2Pitch 6, lfo2Fade 0
  chorusRate 0.2, chorusDepth 70, chorusMix 55, delayOn On, delayDivision 1/2, delayFeedback 50
  delayMix 22, reverbDecay 8, reverbTone 7500, reverbMix 46, volume 4.5

Weir Arp: sequence pluck
  osc1Wave Saw, osc1Pan -0.15, osc2Wave Pulse, osc2Width 25, osc2Fine 5, osc2Level -8, osc2Pan 0.15
  subLevel -20, cutoff 420, resonance 24, filterEnvelope 18, ampAttack 1, ampSustain 95
  ampRelease 400, lfo1Cutoff 0, lfo2Pitch 0, stepsOn On, stepsPitch 24, stepsCutoff 16
  stepsCount 6, step1 0, step2 29, step3 50, step4 100, step5 79, step6 50
  curveOn On, curveCount 2, curveLevel 100, curve1 100, curve2 10, curveDivision 1/32
  delayOn On, delayDivision 1/8D, delayFeedback 46, delayMix 30, chorusMix 30, reverbDecay 3
  reverbMix 26, volume -3

Rust Belt: sequence bass
  osc1Wave Square, osc1Pan 0, osc2Wave Saw, osc2Fine -8, osc2Level -4, osc2Pan 0, subLevel -8
  cutoff 180, resonance 44, filterDrive 16, filterEnvelope 10, ampAttack 1, ampSustain 92
  ampRelease 100, voiceMode Mono, lfo1Cutoff 0, lfo2Pitch 0, stepsOn On, stepsCutoff 40
  stepsGlide 40, step1 100, step2 -60, step3 -60, step4 40, step5 -60, step6 -60, step7 80
  step8 -60, step9 60, step10 -60, step11 90, step12 -60, step13 -60, step14 50, step15 -60
  step16 20, driveOn On, driveShape Fold, driveAmount 9, driveTone 4200, driveMix 70
  chorusOn Off, reverbOn Off, volume -3

Sluice Gate: motion
  osc1Wave Saw, osc1Pan -0.3, osc2Wave Saw, osc2Semi 12, osc2Fine 8, osc2Level -9, osc2Pan 0.3
  unisonOn On, unisonVoices 4, unisonDetune 26, unisonSpread 100, subLevel -16, cutoff 2400
  resonance 10, filterEnvelope 6, ampAttack 2, ampSustain 92, ampRelease 220, lfo2Pitch 0
  curveOn On, curveLevel 100, curve1 100, curve2 90, curve3 0, curve4 0, curve5 85, curve6 0
  curve7 95, curve8 0, curve9 100, curve10 0, curve11 90, curve12 80, curve13 0, curve14 100
  curve15 0, curve16 60, delayOn On, delayDivision 1/8D, delayMix 20, reverbDecay 2
  reverbMix 24, volume -2

Knife Edge: lead
  osc1Wave Saw, osc1Pan 0, osc2Wave Pulse, osc2Width 30, osc2Semi 12, osc2Fine 3, osc2Level -8
  osc2Pan 0, subLevel -24, cutoff 1600, resonance 24, filterDrive 8, filterEnvelope 18
  filterDecay 900, filterSustain 45, ampAttack 3, ampSustain 90, ampRelease 240, voiceMode Legato
  glide 60, lfo1Cutoff 0, lfo2Pitch 14, lfo2Fade 0.6, driveOn On, driveShape Hard, driveBias 12
  driveAmount 16, driveTone 6500, driveMix 75, delayOn On, delayDivision 1/4, delayLowCut 320
  delayTone 4200, delayFeedback 44, delayMix 24, reverbMix 18, volume -1.5

Folded Paper: keys
  osc1Wave Triangle, osc1Pan -0.1, osc2Wave Sine, osc2Semi 12, osc2Fine 2, osc2Level -12, osc2Pan 0.1
  subLevel -26, filterType LP 12, cutoff 1800, resonance 6, filterEnvelope 16, filterDecay 1200
  filterSustain 10, ampAttack 1, ampDecay 4200, ampSustain 20, ampRelease 360, velocityLevel 70
  velocityCutoff 20, lfo1Cutoff 0, lfo2Pitch 0, driveOn On, driveShape Fold, driveAmount 13
  driveBias 8, driveTone 5200, driveMix 55, chorusRate 0.5, chorusMix 40, reverbDecay 2
  reverbMix 24, volume -0.5
)";

}  // namespace halden
