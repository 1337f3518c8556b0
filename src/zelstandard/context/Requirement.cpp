#include <zelstandard/context/Requirement.h>

#include <zelstandard/platform/ZelText.h>

namespace Standard
{

Requirement::Requirement(char name, const std::string& description, Type type)
    : Class(name, description), type_(type)
{
}

Requirement::~Requirement() = default;

void Requirement::updateNClas(BridgeType bridgeType)
{
    const bool railway = bridgeType == BridgeType::RAILWAY1 || bridgeType == BridgeType::RAILWAY2 ||
                         bridgeType == BridgeType::RAILWAY3;
    if (type_ == Type::TYPE_1)
        setName('D');
    else if (!railway || type_ == Type::TYPE_2)
        setName('C');
    else
        setName('B');
}

std::string GetBridgeRequirementText(Requirement::Type type)
{
    switch (type) {
    case RequirementType::TYPE_1:
        return ZelText::Load(7216);
    case RequirementType::TYPE_2:
        return ZelText::Load(7217);
    case RequirementType::TYPE_3:
        return ZelText::Load(7218);
    case RequirementType::TYPE_4:
        return ZelText::Load(7219);
    }
    return "";
}

} // namespace Standard
