#pragma once

#include <string>

#include <gtest/gtest.h>

#include <zelstandard/material/Coefficients.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Context.h"
#include "support/Documents.h"

/// @file
/// All coefficients alike, and as text to compare.

namespace support
{

using Standard::Coefficients;
using Standard::Mode;

/// One of the eleven. Its keys are numbers: design situations 0 to 2, or classifications 1 and 2.
struct Coefficient {
    const char* element;
    int firstKey;
    double (*get)(Mode mode, int key);
    void (*set)(Mode mode, int key, double value);
};

template <class Key, auto Get, auto Set>
constexpr Coefficient coefficient(const char* element, int firstKey)
{
    return {element, firstKey,
            [](Mode mode, int key) { return (Coefficients::get()->*Get)(mode, Key{key}); },
            [](Mode mode, int key, double value) {
                (Coefficients::get()->*Set)(mode, Key{key}, value);
            }};
}

template <auto Get, auto Set> constexpr Coefficient gamma(const char* element)
{
    return coefficient<Standard::DesignSituation, Get, Set>(element, 0);
}

template <auto Get, auto Set> constexpr Coefficient alpha(const char* element)
{
    return coefficient<Standard::Classification, Get, Set>(element, 1);
}

inline constexpr Coefficient coefficients[] = {
    gamma<&Coefficients::getGammaS, &Coefficients::setGammaS>("GAMMA_S"),
    gamma<&Coefficients::getGammaC, &Coefficients::setGammaC>("GAMMA_C"),
    gamma<&Coefficients::getGammaA, &Coefficients::setGammaA>("GAMMA_A"),
    gamma<&Coefficients::getGammaT, &Coefficients::setGammaT>("GAMMA_T"),
    gamma<&Coefficients::getGammaF, &Coefficients::setGammaF>("GAMMA_F"),
    gamma<&Coefficients::getGammaR, &Coefficients::setGammaR>("GAMMA_R"),
    gamma<&Coefficients::getGammaRV, &Coefficients::setGammaRV>("GAMMA_RV"),
    gamma<&Coefficients::getGammaRH, &Coefficients::setGammaRH>("GAMMA_RH"),
    gamma<&Coefficients::getGammaRE, &Coefficients::setGammaRE>("GAMMA_RE"),
    alpha<&Coefficients::getAlphaCC, &Coefficients::setAlphaCC>("ALPHA_CC"),
    alpha<&Coefficients::getAlphaCT, &Coefficients::setAlphaCT>("ALPHA_CT"),
};

/// The last key that files hold.
inline constexpr int lastKey = 2;

/// The values of EC and of each code that differs: "1.5 1.2 1.5; DIN-2008 1.5 1.3 1.5".
inline std::string values(const Coefficient& coefficient)
{
    const auto valuesOf = [&](Mode mode) {
        std::string text;
        for (int key = coefficient.firstKey; key <= lastKey; ++key)
            append(text, coefficient.get(mode, key));
        return text;
    };
    const std::string ec = valuesOf(Mode::EC);
    std::string text = ec;
    for (const Mode mode : Coefficients::get()->getSupportedModes())
        if (const std::string own = valuesOf(mode); own != ec)
            text += "; " + Standard::XMLUtil::get()->getStringToMode(mode) + " " + own;
    return text;
}

/// The values of all, a line each.
inline std::string values()
{
    std::string text;
    for (const Coefficient& coefficient : coefficients)
        text += std::string(coefficient.element) + " " + values(coefficient) + "\n";
    return text;
}

/// As if no value had ever been given, which the process cannot do again.
inline void clearCoefficients()
{
    for (const Coefficient& coefficient : coefficients)
        for (int mode = -1; mode <= 9; ++mode)
            for (int key = -1; key <= 3; ++key)
                coefficient.set(Mode{mode}, key, 0.0);
}

} // namespace support
