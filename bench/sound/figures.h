// Figures of restoration that need more than the difference of two sounds.
#pragma once

#include "bench/sound/material.h"

#include <string>
#include <utility>
#include <vector>

namespace vantora::bench {

// Fills the places with what an autoregressive model of their surroundings makes of them.
void FillKnown(Sound& sound, const std::vector<Place>& places);

// Sounds with hiss, under the names of the figures that HissFigure makes of what a filter leaves:
//   hiss         change of pure hiss, dB, from 0.5 s on
//   kurtosis     of what remains of it
//   attacks      change of hits above 3 kHz, dB
//   dying        change of tones that fade away below the hiss, dB
//   piano        gain of the ratio of sound to noise, dB
//   silence, fade, gate
//                change of hiss, dB, from 0.5 s after digital silence, a fade in, a gate
std::vector<std::pair<std::string, Sound>> HissSounds(std::size_t length, unsigned seed);
double HissFigure(const std::string& name, const Sound& out, unsigned seed);

}  // namespace vantora::bench
