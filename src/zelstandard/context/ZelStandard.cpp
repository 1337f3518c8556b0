#include <zelstandard/context/ZelStandard.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <set>

#include <zelstandard/context/IO.h>
#include <zelstandard/context/detail/BridgeRequirements.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelText.h>

using Standard::BridgeType;
using Standard::BuildingType;
using Standard::Classification;
using Standard::DesignCode;
using Standard::designCodes;
using Standard::DesignMaterial;
using Standard::DesignSituation;
using Standard::ExposureClass;
using Standard::Mode;
using Standard::Requirement;
using Standard::RequirementClass;

namespace
{

/// An object that lives until the process ends: static destructors of a host may still come here.
template <class Object> union Immortal {
    Object object{};
    constexpr Immortal() {}
    ~Immortal() {}
};

constinit Immortal<std::unique_ptr<ZelStandard>> singleton;

using Callbacks = std::set<ZelStandard::ClassificationCallback, std::less<>>;

Callbacks& callbacks()
{
    static Immortal<Callbacks> functions;
    return functions.object;
}

/// How many objects are being made just now; more than one when a callback called get().
int constructions = 0;

struct Construction {
    Construction() { ++constructions; }
    ~Construction() { --constructions; }
    Construction(const Construction&) = delete;
    Construction& operator=(const Construction&) = delete;
};

/// The materials that descriptions are told apart by, and the order in which they are loaded.
struct DescriptionColumn {
    Classification classification;
    DesignMaterial material;
};
constexpr DescriptionColumn descriptionColumns[] = {
    {Classification::BUILDING, DesignMaterial::CONCRETE          },
    {Classification::BUILDING, DesignMaterial::STEEL             },
    {Classification::BUILDING, DesignMaterial::TIMBER            },
    {Classification::BRIDGE,   DesignMaterial::CONCRETE          },
    {Classification::BRIDGE,   DesignMaterial::STEEL             },
    {Classification::BRIDGE,   DesignMaterial::COMPOSITE_STEEL   },
    {Classification::BRIDGE,   DesignMaterial::COMPOSITE_CONCRETE},
};
constexpr Mode describedCodes[] = {Mode::EC,     Mode::DIN_2008, Mode::DIN_EN,
                                   Mode::OENORM, Mode::CSN,      Mode::BS};

static_assert(std::size(descriptionColumns) == std::size(designCodes->descriptions));

/// Null for a value that is no member.
const DesignCode* rowOf(Mode mode)
{
    const auto index = static_cast<std::size_t>(mode); // the rows stand in the order of the values
    return index < std::size(designCodes) ? &designCodes[index] : nullptr;
}

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
        for (const Standard::BridgeRequirement& row : Standard::bridgeRequirements) {
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
    std::array<std::array<std::string, std::size(descriptionColumns)>, std::size(designCodes)>
        texts;

    Descriptions()
    {
        for (std::size_t column = 0; column < std::size(descriptionColumns); ++column)
            for (const Mode mode : describedCodes)
                if (const unsigned int id = rowOf(mode)->descriptions[column])
                    texts[static_cast<std::size_t>(mode)][column] = ZelText::Load(id);
    }
};

std::unique_ptr<ZelStandard>& ZelStandard::m_singleton = singleton.object;

ZelStandard* ZelStandard::get()
{
    ZelStandard* object = singleton.object.get(); // at hand, unlike the reference to it
    return object ? object : make();
}

ZelStandard* ZelStandard::make()
{
    // Not make_unique into the member: the object must be whole before anyone can see it.
    std::unique_ptr<ZelStandard> made(new ZelStandard);
    m_singleton = std::move(made);
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
    const DesignCode* code = rowOf(get()->mode_);
    return code ? code->number : 0;
}

int ZelStandard::getNUTZ(bool flag) const
{
    constexpr int bridges[] = {0, 0, 11, 12, 13, 21, 21}; // by bridge type
    if (isBuildingClassification())
        return buildingType_ == BuildingType::ENGINEERING ? (flag ? 33 : 32) : 31;
    const auto type = static_cast<std::size_t>(bridgeType_);
    return type < std::size(bridges) ? bridges[type] : 0;
}

std::string ZelStandard::getStandardText(Mode mode) const
{
    const DesignCode* code = rowOf(mode);
    return code && code->textId != 0 ? ZelTextResource::get()->loadString(code->textId) : "";
}

std::string ZelStandard::getStandardText_static(Mode mode) { return get()->getStandardText(mode); }

std::string ZelStandard::getStandardDescription(Classification classification,
                                                DesignMaterial material, Mode mode) const
{
    const bool building = classification == Classification::BUILDING;
    const auto* column =
        std::ranges::find_if(descriptionColumns, [&](const DescriptionColumn& row) {
            return row.material == material &&
                   (row.classification == Classification::BUILDING) == building;
        });
    if (!rowOf(mode) || column == std::end(descriptionColumns))
        return "";
    const auto index = static_cast<std::size_t>(column - descriptionColumns);
    return descriptions_->texts[static_cast<std::size_t>(mode)][index];
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
