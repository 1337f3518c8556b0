#pragma once

#include <memory>
#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/context/ExposureClass.h>
#include <zelstandard/context/Requirement.h>
#include <zelstandard/context/RequirementClass.h>
#include <zelstandard/vocabulary/Enumerations.h>

/// The design context of the process: which code is in force, and for what it is applied.
///
/// Every table of the library asks this object at each query, so a changed setting changes all
/// answers at once. Several threads may read the settings once
/// get() has been called, while none changes any; everything else is for one thread at a time.
class ZELSTANDARD_API ZelStandard
{
public:
    using ClassificationCallback = void (*)(Standard::Classification);

    /// The one object, never null and not owned by the caller; made at the first call, which reads
    /// the settings file at getDataBaseDir(). Without that file the code is DIN-2008, for a
    /// concrete building in the persistent situation.
    ///
    /// A classification callback may call get() while the settings file is being read: it then gets
    /// an object of its own, which is destroyed when the outer one is ready. While such an inner
    /// object is being made no callback is called.
    static ZelStandard* get();

    /// Destroys the object, if there is one; what was set and not written is lost. Registered
    /// callbacks stay.
    static void kill();

    ~ZelStandard();
    ZelStandard(const ZelStandard&) = delete;
    ZelStandard& operator=(const ZelStandard&) = delete;

    // The settings. No setter checks its value.

    [[nodiscard]] Standard::Mode getMode() const { return mode_; }
    void setMode(Standard::Mode mode) { mode_ = mode; }

    [[nodiscard]] Standard::DesignMaterial getDesignMaterial() const { return designMaterial_; }
    void setDesignMaterial(Standard::DesignMaterial material) { designMaterial_ = material; }

    /// The stored type, but ROADWAY for a stored value below 1. The queries isRailwayBridge(),
    /// isFootbridge() and getNUTZ() look at the stored value itself.
    [[nodiscard]] Standard::BridgeType getBridgeType() const
    {
        using Standard::BridgeType;
        return bridgeType_ < BridgeType::ROADWAY ? BridgeType::ROADWAY : bridgeType_;
    }
    void setBridgeType(Standard::BridgeType type) { bridgeType_ = type; }

    [[nodiscard]] Standard::BuildingType getBuildingType() const { return buildingType_; }
    void setBuildingType(Standard::BuildingType type) { buildingType_ = type; }

    [[nodiscard]] Standard::Classification getClassification() const { return classification_; }
    /// Calls every registered function, in ascending order of address, when the value changes.
    void setClassification(Standard::Classification classification);

    [[nodiscard]] Standard::DesignSituation getSituation() const { return situation_; }
    void setSituation(Standard::DesignSituation situation) { situation_ = situation; }

    [[nodiscard]] Standard::DuctilityClass getDuctilityClass() const { return ductilityClass_; }
    void setDuctilityClass(Standard::DuctilityClass value) { ductilityClass_ = value; }

    /// Service class of timber (EN 1995-1-1 2.3.1.3), 1 to 3.
    [[nodiscard]] int getServiceClass() const { return serviceClass_; }
    void setServiceClass(int value) { serviceClass_ = value; }

    /// Registers a function to be told of a new classification, for the life of the process; once,
    /// however often it is given. Null is taken and never called. One that is registered while
    /// others are being called is told of the next change. While a settings file is read the
    /// function sees the new mode, and the other settings still as they were.
    void addCallbackFunction(ClassificationCallback function);

    [[nodiscard]] bool isBuildingClassification() const;
    [[nodiscard]] bool isBridgeClassification() const;
    [[nodiscard]] bool isConcrete() const;
    [[nodiscard]] bool isSteel() const;
    [[nodiscard]] bool isCompositeSteel() const;
    [[nodiscard]] bool isCompositeConcrete() const;
    [[nodiscard]] bool isComposite() const;
    [[nodiscard]] bool isPersistentSituation() const;
    [[nodiscard]] bool isAccidentalSituation() const;
    [[nodiscard]] bool isAccidentalEarthquakeSituation() const;
    [[nodiscard]] bool isRailwayBridge() const;
    [[nodiscard]] bool isFootbridge() const;

    /// Code number of the mode of the process's object get(), whichever object it is asked of;
    /// this is wanted.
    [[nodiscard]] int getCODE() const;

    /// Number of the use: 31 common building, 32 or with the flag 33 engineering structure; on a
    /// bridge, where the flag plays no part, 0 road, 11 to 13 railway, 21 footbridge.
    [[nodiscard]] int getNUTZ(bool flag) const;

    /// The display name of a code; empty for NO_CODE and any value that is no member.
    [[nodiscard]] std::string getStandardText(Standard::Mode mode) const;
    [[nodiscard]] static std::string getStandardText_static(Standard::Mode mode);

    /// The design code for a material, in the language at the creation of this object. Empty where
    /// the code has none: DIN-1988 and SIA everywhere, timber and rope on bridges.
    [[nodiscard]] std::string getStandardDescription(Standard::Classification classification,
                                                     Standard::DesignMaterial material,
                                                     Standard::Mode mode) const;

    // The durability classes; this object owns them.

    [[nodiscard]] const std::vector<Standard::RequirementClass*>& getRequirementClasses() const;
    [[nodiscard]] const std::vector<Standard::Requirement*>& getRequirements() const;
    [[nodiscard]] const std::vector<Standard::ExposureClass*>& getExposureClasses() const;

    // Each gives null when there is none. Letters and names are compared exactly; requirements by
    // their text, so in the language at the creation of this object.

    [[nodiscard]] Standard::RequirementClass* findRequirementClass(char name) const;
    [[nodiscard]] Standard::Requirement* findRequirement(Standard::Requirement::Type type) const;
    [[nodiscard]] Standard::ExposureClass* findExposureClass(const std::string& name) const;

    /// A path that takes the place of the whole path of the settings file; empty for none. It holds
    /// for this object: after kill() the default path is in force again.
    void setAlternativeDBPath(const std::string& path) { alternativeDBPath_ = path; }

    /// The path of the settings file: the alternative path, else the installation directory
    /// followed by "\Profiles\Standard.xml".
    [[nodiscard]] std::string getDataBaseDir() const;

    /// Reads the settings from a file; a file that does not open or has no "SETTINGS" changes
    /// nothing.
    void input(const std::string& path);

    /// Writes the settings. The file is replaced as a whole: material coefficients, control values
    /// and state instructions that it held are lost. To keep them, write into the tree of the
    /// file (IO::write).
    void output(const std::string& path);

private:
    struct Requirements;
    struct Descriptions;

    ZelStandard();

    static ZelStandard* make();

    static std::unique_ptr<ZelStandard>& m_singleton; ///< never torn down

    std::unique_ptr<Requirements> requirements_;
    std::unique_ptr<Descriptions> descriptions_;
    Standard::Mode mode_ = Standard::Mode::DIN_2008;
    Standard::DesignMaterial designMaterial_ = Standard::DesignMaterial::CONCRETE;
    Standard::BridgeType bridgeType_ = Standard::BridgeType::ROADWAY;
    Standard::BuildingType buildingType_ = Standard::BuildingType::COMMON;
    Standard::Classification classification_ = Standard::Classification::BUILDING;
    Standard::DesignSituation situation_ = Standard::DesignSituation::PERSISTENT;
    Standard::DuctilityClass ductilityClass_ = Standard::DuctilityClass::DCM;
    int serviceClass_ = 1;
    std::string alternativeDBPath_;
};

namespace Standard
{

// The queries of ZelStandard::get() of the same names.

[[nodiscard]] ZELSTANDARD_API bool isBridgeClassification();
[[nodiscard]] ZELSTANDARD_API bool isBuildingClassification();
[[nodiscard]] ZELSTANDARD_API bool isComposite();
[[nodiscard]] ZELSTANDARD_API bool isCompositeConcrete();
[[nodiscard]] ZELSTANDARD_API bool isCompositeSteel();
[[nodiscard]] ZELSTANDARD_API bool isRailwayBridge();

} // namespace Standard
