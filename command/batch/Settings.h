#pragma once

#include <string>

#include <zelstandard/context/ZelStandard.h>

#include <command/batch/Enumerations.h>

namespace command
{

/// One of the settings in force, as a number.
struct SettingRow {
    const char* name; ///< that of its enumeration too
    bool hasWords;
    int (*get)();
    void (*set)(int value);
};

template <auto getter, auto setter, class Value> constexpr SettingRow settingRow(const char* name)
{
    return {name, !std::is_same_v<Value, int>,
            [] { return static_cast<int>((ZelStandard::get()->*getter)()); },
            [](int value) { (ZelStandard::get()->*setter)(static_cast<Value>(value)); }};
}

/// In the order in which they are shown.
// clang-format off
using Z = ZelStandard;
inline constexpr SettingRow settings[] = {
    settingRow<&Z::getMode,           &Z::setMode,           Standard::Mode           >("mode"),
    settingRow<&Z::getClassification, &Z::setClassification, Standard::Classification >("classification"),
    settingRow<&Z::getBridgeType,     &Z::setBridgeType,     Standard::BridgeType     >("bridge"),
    settingRow<&Z::getBuildingType,   &Z::setBuildingType,   Standard::BuildingType   >("building"),
    settingRow<&Z::getDesignMaterial, &Z::setDesignMaterial, Standard::DesignMaterial >("material"),
    settingRow<&Z::getSituation,      &Z::setSituation,      Standard::DesignSituation>("situation"),
    settingRow<&Z::getDuctilityClass, &Z::setDuctilityClass, Standard::DuctilityClass >("ductility"),
    settingRow<&Z::getServiceClass,   &Z::setServiceClass,   int                      >("service"),
};
// clang-format on

inline std::string wordOf(const SettingRow& row)
{
    return row.hasWords ? wordFor(row.name, row.get()) : std::to_string(row.get());
}

} // namespace command
