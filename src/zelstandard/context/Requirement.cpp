#include <zelstandard/context/Requirement.h>

#include <algorithm>
#include <iterator>

#include <zelstandard/context/detail/BridgeRequirements.h>
#include <zelstandard/platform/ZelText.h>

namespace Standard
{

Requirement::Requirement(char name, const std::string& description, Type type)
    : Class(name, description), type_(type)
{
}

Requirement::Requirement(const Requirement& other) = default;
Requirement::Requirement(Requirement&& other) noexcept = default;
Requirement& Requirement::operator=(const Requirement& other) = default;
Requirement& Requirement::operator=(Requirement&& other) noexcept = default;
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
    const auto* row = std::ranges::find(bridgeRequirements, type, &BridgeRequirement::type);
    return row == std::end(bridgeRequirements) ? "" : ZelText::Load(row->textId);
}

} // namespace Standard
