#include <zelstandard/context/ZelStandard.h>

#include <algorithm>
#include <map>
#include <set>

#include <zelstandard/context/IO.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelText.h>

using Standard::BridgeType;
using Standard::BuildingType;
using Standard::Classification;
using Standard::DesignMaterial;
using Standard::DesignSituation;
using Standard::ExposureClass;
using Standard::Mode;
using Standard::Requirement;
using Standard::RequirementClass;

namespace
{

std::set<ZelStandard::ClassificationCallback, std::less<>>& callbacks()
{
    static std::set<ZelStandard::ClassificationCallback, std::less<>> functions;
    return functions;
}

/// How many objects are being made just now; more than one when a callback called get().
int constructions = 0;

struct Construction {
    Construction() { ++constructions; }
    ~Construction() { --constructions; }
    Construction(const Construction&) = delete;
    Construction& operator=(const Construction&) = delete;
};

/// The design code of each material. DIN-1988 and SIA have none, and bridges have none of timber
/// and rope; a caller gets the empty string there.
struct DescriptionRow {
    DesignMaterial material;
    Mode mode;
    unsigned int textId;
};

constexpr DescriptionRow buildingDescriptions[] = {
    {DesignMaterial::CONCRETE, Mode::EC,       7423},
    {DesignMaterial::CONCRETE, Mode::DIN_2008, 7424},
    {DesignMaterial::CONCRETE, Mode::DIN_EN,   7425},
    {DesignMaterial::CONCRETE, Mode::OENORM,   7426},
    {DesignMaterial::CONCRETE, Mode::CSN,      7427},
    {DesignMaterial::CONCRETE, Mode::BS,       7428},
    {DesignMaterial::STEEL,    Mode::EC,       7429},
    {DesignMaterial::STEEL,    Mode::DIN_2008, 7430},
    {DesignMaterial::STEEL,    Mode::DIN_EN,   7431},
    {DesignMaterial::STEEL,    Mode::OENORM,   7432},
    {DesignMaterial::STEEL,    Mode::CSN,      7433},
    {DesignMaterial::STEEL,    Mode::BS,       7434},
    {DesignMaterial::TIMBER,   Mode::EC,       7435},
    {DesignMaterial::TIMBER,   Mode::DIN_2008, 7436},
    {DesignMaterial::TIMBER,   Mode::DIN_EN,   7437},
    {DesignMaterial::TIMBER,   Mode::OENORM,   7438},
    {DesignMaterial::TIMBER,   Mode::CSN,      7439},
    {DesignMaterial::TIMBER,   Mode::BS,       7440},
};

constexpr DescriptionRow bridgeDescriptions[] = {
    {DesignMaterial::CONCRETE,           Mode::EC,       7441},
    {DesignMaterial::CONCRETE,           Mode::DIN_2008, 7442},
    {DesignMaterial::CONCRETE,           Mode::DIN_EN,   7443},
    {DesignMaterial::CONCRETE,           Mode::OENORM,   7444},
    {DesignMaterial::CONCRETE,           Mode::CSN,      7445},
    {DesignMaterial::CONCRETE,           Mode::BS,       7446},
    {DesignMaterial::STEEL,              Mode::EC,       7447},
    {DesignMaterial::STEEL,              Mode::DIN_2008, 7448},
    {DesignMaterial::STEEL,              Mode::DIN_EN,   7449},
    {DesignMaterial::STEEL,              Mode::OENORM,   7450},
    {DesignMaterial::STEEL,              Mode::CSN,      7451},
    {DesignMaterial::COMPOSITE_STEEL,    Mode::EC,       7452},
    {DesignMaterial::COMPOSITE_STEEL,    Mode::DIN_2008, 7453},
    {DesignMaterial::COMPOSITE_STEEL,    Mode::DIN_EN,   7454},
    {DesignMaterial::COMPOSITE_CONCRETE, Mode::EC,       7455},
    {DesignMaterial::COMPOSITE_CONCRETE, Mode::DIN_2008, 7456},
    {DesignMaterial::COMPOSITE_CONCRETE, Mode::DIN_EN,   7457},
    {DesignMaterial::COMPOSITE_CONCRETE, Mode::OENORM,   7458},
    {DesignMaterial::COMPOSITE_CONCRETE, Mode::CSN,      7459},
    {DesignMaterial::COMPOSITE_CONCRETE, Mode::BS,       7460},
};

struct RequirementClassRow {
    char name;
    unsigned int textId;
    double crackWidth; // m
};

/// 'E' and 'F' share one text; this is wanted, they differ in their crack width alone.
constexpr RequirementClassRow requirementClasses[] = {
    {'A', 1064, 0.0002},
    {'B', 1065, 0.0002},
    {'C', 1066, 0.0002},
    {'D', 1067, 0.0002},
    {'E', 1068, 0.0003},
    {'F', 1068, 0.0004},
};

struct ExposureClassRow {
    const char* name;
    int number;
    int group;
};

constexpr ExposureClassRow exposureClasses[] = {
    {"X0",  1,  0},
    {"XC1", 1,  0},
    {"XC2", 2,  0},
    {"XC3", 3,  0},
    {"XC4", 4,  0},
    {"XS1", 11, 2},
    {"XS2", 12, 2},
    {"XS3", 13, 2},
    {"XD1", 21, 1},
    {"XD2", 22, 1},
    {"XD3", 23, 1},
};

struct RequirementRow {
    char name;
    unsigned int textId;
    Requirement::Type type;
};

constexpr RequirementRow requirements[] = {
    {'D', 7216, Requirement::Type::TYPE_1},
    {'C', 7217, Requirement::Type::TYPE_2},
    {'B', 7218, Requirement::Type::TYPE_3},
    {'B', 7219, Requirement::Type::TYPE_4},
};

/// The first element that the test accepts, or null.
template <class Element, class Test>
Element* findFirst(const std::vector<Element*>& elements, Test accepts)
{
    const auto found = std::ranges::find_if(elements, accepts);
    return found == elements.end() ? nullptr : *found;
}

} // namespace

/// Owns the durability classes.
struct ZelStandard::Requirements {
    std::vector<RequirementClass*> requirementClasses;
    std::vector<Requirement*> requirements;
    std::vector<ExposureClass*> exposureClasses;

    Requirements()
    {
        for (const RequirementClassRow& row : ::requirementClasses)
            addNew(requirementClasses,
                   std::make_unique<RequirementClass>(row.name, ZelText::Load(row.textId),
                                                      row.crackWidth),
                   findRequirementClass(row.name));
        for (const ExposureClassRow& row : ::exposureClasses)
            addNew(exposureClasses,
                   std::make_unique<ExposureClass>(row.name, row.name, row.group, row.number),
                   findExposureClass(row.name));
        // A text that an earlier requirement has already is not added again.
        for (const RequirementRow& row : ::requirements) {
            const std::string text = ZelText::Load(row.textId);
            addNew(requirements, std::make_unique<Requirement>(row.name, text, row.type),
                   findRequirement(text));
        }
    }

    ~Requirements()
    {
        for (RequirementClass* element : requirementClasses)
            delete element;
        for (Requirement* element : requirements)
            delete element;
        for (ExposureClass* element : exposureClasses)
            delete element;
    }

    Requirements(const Requirements&) = delete;
    Requirements& operator=(const Requirements&) = delete;

    [[nodiscard]] RequirementClass* findRequirementClass(char name) const
    {
        return findFirst(requirementClasses, [&](const RequirementClass* element) {
            return element->getName() == name;
        });
    }

    [[nodiscard]] Requirement* findRequirement(const std::string& text) const
    {
        const Tools::StringCompare matches(text, 1);
        return findFirst(requirements, [&](const Requirement* element) {
            return matches(element->getDescription());
        });
    }

    [[nodiscard]] ExposureClass* findExposureClass(const std::string& name) const
    {
        return findFirst(exposureClasses,
                         [&](const ExposureClass* element) { return element->getName() == name; });
    }

private:
    template <class Element>
    static void addNew(std::vector<Element*>& elements, std::unique_ptr<Element> element,
                       const Element* present)
    {
        if (present)
            return;
        elements.push_back(element.get());
        element.release();
    }
};

struct ZelStandard::Descriptions {
    using Texts = std::map<DesignMaterial, std::map<Mode, std::string>>;

    Texts bridge;
    Texts building;

    Descriptions()
    {
        for (const DescriptionRow& row : buildingDescriptions)
            building[row.material][row.mode] = ZelText::Load(row.textId);
        for (const DescriptionRow& row : bridgeDescriptions)
            bridge[row.material][row.mode] = ZelText::Load(row.textId);
    }
};

std::unique_ptr<ZelStandard> ZelStandard::m_singleton;

ZelStandard* ZelStandard::get()
{
    if (!m_singleton) {
        // Not make_unique into the member: the object must be whole before anyone can see it.
        std::unique_ptr<ZelStandard> made(new ZelStandard);
        m_singleton = std::move(made);
    }
    return m_singleton.get();
}

void ZelStandard::kill() { const std::unique_ptr<ZelStandard> dying = std::move(m_singleton); }

ZelStandard::ZelStandard()
    : requirements_(std::make_unique<Requirements>()),
      descriptions_(std::make_unique<Descriptions>())
{
    const Construction underWay;
    input(getDataBaseDir());
}

ZelStandard::~ZelStandard() = default;

BridgeType ZelStandard::getBridgeType() const { return std::max(bridgeType_, BridgeType::ROADWAY); }

void ZelStandard::setClassification(Classification classification)
{
    if (classification == classification_)
        return;
    classification_ = classification;
    if (constructions > 1)
        return;                         // a callback called get(): calling it again would never end
    const auto functions = callbacks(); // a callback may register another one
    for (const ClassificationCallback function : functions)
        if (function)
            function(classification);
}

void ZelStandard::addCallbackFunction(ClassificationCallback function)
{
    callbacks().insert(function);
}

bool ZelStandard::isBuildingClassification() const
{
    return classification_ == Classification::BUILDING;
}

bool ZelStandard::isBridgeClassification() const
{
    return classification_ == Classification::BRIDGE;
}

bool ZelStandard::isConcrete() const { return designMaterial_ == DesignMaterial::CONCRETE; }

bool ZelStandard::isSteel() const { return designMaterial_ == DesignMaterial::STEEL; }

bool ZelStandard::isCompositeSteel() const
{
    return designMaterial_ == DesignMaterial::COMPOSITE_STEEL;
}

bool ZelStandard::isCompositeConcrete() const
{
    return designMaterial_ == DesignMaterial::COMPOSITE_CONCRETE;
}

bool ZelStandard::isComposite() const { return isCompositeSteel() || isCompositeConcrete(); }

bool ZelStandard::isPersistentSituation() const
{
    return situation_ == DesignSituation::PERSISTENT;
}

bool ZelStandard::isAccidentalSituation() const
{
    return situation_ == DesignSituation::ACCIDENTAL;
}

bool ZelStandard::isAccidentalEarthquakeSituation() const
{
    return situation_ == DesignSituation::ACCIDENTAL_EQ;
}

bool ZelStandard::isRailwayBridge() const
{
    return isBridgeClassification() &&
           (bridgeType_ == BridgeType::RAILWAY1 || bridgeType_ == BridgeType::RAILWAY2 ||
            bridgeType_ == BridgeType::RAILWAY3);
}

bool ZelStandard::isFootbridge() const
{
    return isBridgeClassification() &&
           (bridgeType_ == BridgeType::FOOTBRIDGE1 || bridgeType_ == BridgeType::FOOTBRIDGE2);
}

int ZelStandard::getCODE() const
{
    switch (get()->mode_) {
    case Mode::NO_CODE:
        return 0;
    case Mode::EC:
        return 1;
    case Mode::DIN_1988:
        return 0;
    case Mode::DIN_2008:
        return 2;
    case Mode::SIA:
        return 0;
    case Mode::OENORM:
        return 3;
    case Mode::CSN:
        return 6;
    case Mode::BS:
        return 4;
    case Mode::DIN_EN:
        return 5;
    }
    return 0;
}

int ZelStandard::getNUTZ(bool flag) const
{
    if (isBuildingClassification())
        return buildingType_ == BuildingType::ENGINEERING ? (flag ? 33 : 32) : 31;
    switch (bridgeType_) {
    case BridgeType::ROADWAY:
        return 0;
    case BridgeType::RAILWAY1:
        return 11;
    case BridgeType::RAILWAY2:
        return 12;
    case BridgeType::RAILWAY3:
        return 13;
    case BridgeType::FOOTBRIDGE1:
        return 21;
    case BridgeType::FOOTBRIDGE2:
        return 21;
    }
    return 0;
}

std::string ZelStandard::getStandardText(Mode mode) const
{
    const auto text = [](unsigned int id) { return ZelTextResource::get()->loadString(id); };
    switch (mode) {
    case Mode::NO_CODE:
        return "";
    case Mode::EC:
        return text(3214);
    case Mode::DIN_1988:
        return text(1375);
    case Mode::DIN_2008:
        return text(5094);
    case Mode::SIA:
        return text(5098);
    case Mode::OENORM:
        return text(6470);
    case Mode::CSN:
        return text(6471);
    case Mode::BS:
        return text(6472);
    case Mode::DIN_EN:
        return text(6469);
    }
    return "";
}

std::string ZelStandard::getStandardText_static(Mode mode) { return get()->getStandardText(mode); }

std::string ZelStandard::getStandardDescription(Classification classification,
                                                DesignMaterial material, Mode mode) const
{
    const auto& texts = classification == Classification::BUILDING ? descriptions_->building
                                                                   : descriptions_->bridge;
    const auto ofMaterial = texts.find(material);
    if (ofMaterial == texts.end())
        return "";
    const auto ofMode = ofMaterial->second.find(mode);
    return ofMode == ofMaterial->second.end() ? "" : ofMode->second;
}

const std::vector<RequirementClass*>& ZelStandard::getRequirementClasses() const
{
    return requirements_->requirementClasses;
}

const std::vector<Requirement*>& ZelStandard::getRequirements() const
{
    return requirements_->requirements;
}

const std::vector<ExposureClass*>& ZelStandard::getExposureClasses() const
{
    return requirements_->exposureClasses;
}

RequirementClass* ZelStandard::findRequirementClass(char name) const
{
    return requirements_->findRequirementClass(name);
}

Requirement* ZelStandard::findRequirement(Requirement::Type type) const
{
    return requirements_->findRequirement(Standard::GetBridgeRequirementText(type));
}

ExposureClass* ZelStandard::findExposureClass(const std::string& name) const
{
    return requirements_->findExposureClass(name);
}

std::string ZelStandard::getDataBaseDir() const
{
    if (!alternativeDBPath_.empty())
        return alternativeDBPath_;
    return Tools::getInstallationDirectory(false) + "\\Profiles\\Standard.xml";
}

void ZelStandard::input(const std::string& path) { Standard::IO::read(path, this); }

void ZelStandard::output(const std::string& path) { Standard::IO::write(path, this); }

namespace Standard
{

bool isBridgeClassification() { return ZelStandard::get()->isBridgeClassification(); }

bool isBuildingClassification() { return ZelStandard::get()->isBuildingClassification(); }

bool isComposite() { return ZelStandard::get()->isComposite(); }

bool isCompositeConcrete() { return ZelStandard::get()->isCompositeConcrete(); }

bool isCompositeSteel() { return ZelStandard::get()->isCompositeSteel(); }

bool isRailwayBridge() { return ZelStandard::get()->isRailwayBridge(); }

} // namespace Standard
