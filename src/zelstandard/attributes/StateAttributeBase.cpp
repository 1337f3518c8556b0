#include <zelstandard/attributes/StateAttributeBase.h>

#include <iterator>

#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

namespace
{

constexpr unsigned int noText = 3463;

constexpr bool standInTheOrderOfValues()
{
    for (std::size_t i = 0; i < std::size(stateAttributeTokens); ++i)
        if (static_cast<std::size_t>(stateAttributeTokens[i].value) != i)
            return false;
    return true;
}

static_assert(standInTheOrderOfValues(), "rowOf() takes the value for the index");

/// Null for a value that is no member.
const StateAttributeTokenRow* rowOf(StateAttributeToken token)
{
    const auto index = static_cast<std::size_t>(token);
    return index < std::size(stateAttributeTokens) ? &stateAttributeTokens[index] : nullptr;
}

} // namespace

StateAttributeBase::StateAttributeBase(StateAttributeToken token) : token_(token) {}

StateAttributeBase::StateAttributeBase(StateAttributeToken token, Operator value)
    : operator_(value), token_(token)
{
}

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
    const StateAttributeTokenRow* row = rowOf(token);
    return row ? row->word : "";
}

// By value, as callers know it. NOLINTNEXTLINE(performance-unnecessary-value-param)
StateAttributeToken StateAttributeBase::getTokenFromPersistenceString(std::string word)
{
    return XMLUtil::get()->getStateAttrTokenToString(word);
}

unsigned int StateAttributeBase::determineTokenId() const
{
    const StateAttributeTokenRow* row = rowOf(token_);
    return row ? row->nameTextId : noText;
}

unsigned int StateAttributeBase::determineDescriptionId() const
{
    const auto category =
        static_cast<unsigned int>(token_) - static_cast<unsigned int>(StateAttributeToken::NLA);
    return isImposedLoadType() ? 6024 + category : noText;
}

} // namespace Standard
