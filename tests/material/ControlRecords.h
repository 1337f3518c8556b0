#pragma once

#include <array>
#include <string>

#include <gtest/gtest.h>

#include <zelstandard/material/Control.h>

#include "support/Context.h"
#include "support/Documents.h"

/// @file
/// All control values alike, and as text to compare.

namespace support
{

using Standard::Control;
using Standard::Mode;

struct ControlValue {
    const char* name;
    double (*get)(Mode mode);
    void (*set)(Mode mode, double value);
};

inline constexpr std::array<ControlValue, 6> controlValues{
    {
     {"gamma", &Control::getGamma, &Control::setGamma},
     {"gamma factor", &Control::getGammaFactor, &Control::setGammaFactor},
     {"strut factor", &Control::getStrutFactor, &Control::setStrutFactor},
     {"compression eta", &Control::getCompressionEta, &Control::setCompressionEta},
     {"compression lambda", &Control::getCompressionLambda, &Control::setCompressionLambda},
     {"internal factor", [](Mode mode) { return Control::getInternalFactor(mode) ? 1.0 : 0.0; },
         [](Mode mode, double value) { Control::setInternalFactor(mode, value != 0.0); }},
     }
};

/// The record of all codes but DIN-1988, and that of DIN-1988, in the order of the table above:
/// "1 1 0 0 0 0; 1.75 1.2 0 0 0 1".
inline std::string records()
{
    std::string ec;
    std::string din;
    for (const ControlValue& value : controlValues) {
        append(ec, value.get(Mode::EC));
        append(din, value.get(Mode::DIN_1988));
    }
    return ec + "; " + din;
}

inline void setRecord(Mode mode, const std::array<double, 6>& values)
{
    for (std::size_t index = 0; index < values.size(); ++index)
        controlValues[index].set(mode, values[index]);
}

} // namespace support
