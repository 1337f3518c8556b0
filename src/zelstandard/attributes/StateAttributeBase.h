#pragma once

#include <string>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// The tag that a load case carries for superposition: a token, how load cases with it are
/// superposed, and its types.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API StateAttributeBase
{
public:
    /// Operator AND unless given, type DEFAULT, load type UNDEFINED.
    explicit StateAttributeBase(StateAttributeToken token);
    StateAttributeBase(StateAttributeToken token, Operator value);
    StateAttributeBase(const StateAttributeBase& other);
    StateAttributeBase& operator=(const StateAttributeBase& other);
    virtual ~StateAttributeBase();

    [[nodiscard]] StateAttributeToken getToken() const { return token_; }
    void setToken(StateAttributeToken token) { token_ = token; }
    [[nodiscard]] Operator getOperator() const { return operator_; }
    void setOperator(Operator value) { operator_ = value; }
    [[nodiscard]] AttributeType getType() const { return type_; }
    void setType(AttributeType type) { type_ = type; }
    [[nodiscard]] AttributeLoadType getLoadType() const { return loadType_; }
    void setLoadType(AttributeLoadType type) { loadType_ = type; }

    /// Copies all fields; null changes nothing.
    void setData(const StateAttributeBase* other);

    /// True for every operator but NONE, also for a value that is no member.
    [[nodiscard]] bool hasOperator() const { return operator_ != Operator::NONE; }
    [[nodiscard]] bool isType(AttributeType type) const { return type_ == type; }
    /// True for the categories of imposed loads, NLA to NLH.
    [[nodiscard]] bool isImposedLoadType() const;

    /// 1 or 0; all fields are compared.
    [[nodiscard]] int operator==(const StateAttributeBase& other) const;
    [[nodiscard]] int operator!=(const StateAttributeBase& other) const;

    /// The display and the report name of the token.
    [[nodiscard]] std::string getName() const;
    [[nodiscard]] std::string getReportName() const;
    /// What a category of imposed loads is; for other tokens a general text.
    [[nodiscard]] std::string getDescriptionText() const;
    [[nodiscard]] std::string getReportDescriptionText() const;
    /// For imposed loads the description text with the name in parentheses; else the name.
    [[nodiscard]] std::string getDescription() const;
    [[nodiscard]] std::string getReportDescription() const;

    /// The word of a token ("-" for UNDEFINED); empty for a value that is no member.
    [[nodiscard]] static std::string getPersistenceStringFromToken(StateAttributeToken token);
    /// The token of a word; UNDEFINED for any other text.
    [[nodiscard]] static StateAttributeToken getTokenFromPersistenceString(std::string word);

private:
    [[nodiscard]] unsigned int determineTokenId() const;
    [[nodiscard]] unsigned int determineDescriptionId() const;

    Operator operator_ = Operator::AND;
    AttributeType type_ = AttributeType::DEFAULT;
    AttributeLoadType loadType_ = AttributeLoadType::UNDEFINED;
    StateAttributeToken token_;
};

} // namespace Standard
