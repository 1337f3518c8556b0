#include <zelstandard/attributes/StateAttributeBase.h>

#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

namespace
{

constexpr unsigned int noText = 3463;

} // namespace

StateAttributeBase::StateAttributeBase(StateAttributeToken token) : token_(token) {}

StateAttributeBase::StateAttributeBase(StateAttributeToken token, Operator value)
    : operator_(value), token_(token)
{
}

StateAttributeBase::StateAttributeBase(const StateAttributeBase& other) = default;
StateAttributeBase& StateAttributeBase::operator=(const StateAttributeBase& other) = default;
StateAttributeBase::~StateAttributeBase() = default;

void StateAttributeBase::setData(const StateAttributeBase* other)
{
    if (other)
        *this = *other;
}

bool StateAttributeBase::isImposedLoadType() const
{
    return token_ >= StateAttributeToken::NLA && token_ <= StateAttributeToken::NLH;
}

int StateAttributeBase::operator==(const StateAttributeBase& other) const
{
    return token_ == other.token_ && type_ == other.type_ && loadType_ == other.loadType_ &&
           operator_ == other.operator_;
}

int StateAttributeBase::operator!=(const StateAttributeBase& other) const
{
    return !(*this == other);
}

std::string StateAttributeBase::getName() const { return ZelText::Load(determineTokenId()); }

std::string StateAttributeBase::getReportName() const { return LSReport(determineTokenId()); }

std::string StateAttributeBase::getDescriptionText() const
{
    return ZelText::Load(determineDescriptionId());
}

std::string StateAttributeBase::getReportDescriptionText() const
{
    return LSReport(determineDescriptionId());
}

std::string StateAttributeBase::getDescription() const
{
    return isImposedLoadType() ? getDescriptionText() + " (" + getName() + ")" : getName();
}

std::string StateAttributeBase::getReportDescription() const
{
    return isImposedLoadType() ? getReportDescriptionText() + " (" + getReportName() + ")"
                               : getReportName();
}

std::string StateAttributeBase::getPersistenceStringFromToken(StateAttributeToken token)
{
    const char* word = Words<stateAttributeTokens, 0>::text(token);
    return word ? word : "";
}

// By value, as callers know it. NOLINTNEXTLINE(performance-unnecessary-value-param)
StateAttributeToken StateAttributeBase::getTokenFromPersistenceString(std::string word)
{
    return XMLUtil::get()->getStateAttrTokenToString(word);
}

unsigned int StateAttributeBase::determineTokenId() const
{
    const unsigned int id = textIdOf<stateAttributeTokens>(token_);
    return id ? id : noText;
}

unsigned int StateAttributeBase::determineDescriptionId() const
{
    const auto category =
        static_cast<unsigned int>(token_) - static_cast<unsigned int>(StateAttributeToken::NLA);
    return isImposedLoadType() ? 6024 + category : noText;
}

} // namespace Standard
