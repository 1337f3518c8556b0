#pragma once

#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/attributes/StateAttributeBase.h>

namespace Standard
{

class ActionGroup;
class ActionType;

/// A state attribute as the catalogue holds it: bound to the action type whose factors apply to its
/// load cases, with the groups in which it combines or excludes, and with the design codes,
/// classifications and bridge types for which it is offered.
///
/// Several threads may read attributes that none changes, while none changes their action types or
/// the settings either.
class ZELSTANDARD_API StateAttribute : public StateAttributeBase
{
public:
    /// @param actionType may be null; not owned
    StateAttribute(StateAttributeToken token, ActionType* actionType);
    /// Copies share the action type, also one that the source owns. Only deleteContentOfList()
    /// deletes an owned one: so never put a copy and its source into such a list both.
    StateAttribute(const StateAttribute& other);
    StateAttribute& operator=(const StateAttribute& other);
    ~StateAttribute() override;

    /// Copies everything but the instance flag; the action type only when this attribute does not
    /// own its own. Null changes nothing.
    void setData(const StateAttribute* other);

    /// Appends a copy of each source attribute, null entries left out; a copy owns a copy of the
    /// action type. Release the list with deleteContentOfList().
    static void copyList(std::vector<StateAttribute*>& destination,
                         const std::vector<StateAttribute*>& source);

    /// Deletes the attributes, and the action types that they own, and empties the list.
    static void deleteContentOfList(std::vector<StateAttribute*>& list);

    /// Null when there is none. Setting does not change the instance flag.
    [[nodiscard]] ActionType* getActionType() const { return actionType_; }
    void setActionType(ActionType* type) { actionType_ = type; }
    /// The action type's group; null without an action type or group.
    [[nodiscard]] ActionGroup* getActionGroup() const;

    /// 1: this attribute owns its action type (copyList() made it); 0: the type is owned elsewhere.
    [[nodiscard]] int getActionTypeInstanceFlag() const { return instanceFlag_; }
    void setActionTypeInstanceFlag(int flag) { instanceFlag_ = flag; }

    /// Of the attributes of one exclusion group only one may act. 0: none.
    [[nodiscard]] int getExclGroup() const { return exclGroup_; }
    void setExclGroup(int group) { exclGroup_ = group; }
    /// 0: none.
    [[nodiscard]] int getCombGroup() const { return combGroup_; }
    void setCombGroup(int group) { combGroup_ = group; }

    // What the attribute is valid for. An empty set means all; "has" is then false all the same. In
    // a bit field the value v is bit v + 3, and the three lowest bits are unused; a value that does
    // not fit has no bit.

    void addStandard(Mode mode) { standards_.add(mode); }
    [[nodiscard]] bool hasStandard(Mode mode) const { return standards_.has(mode); }
    [[nodiscard]] int getStandardBitField() const { return standards_.bitField(); }
    [[nodiscard]] bool isValidForAllStandards() const { return standards_.isEmpty(); }
    void clearStandards() { standards_.clear(); }

    void addClassification(Classification value) { classifications_.add(value); }
    [[nodiscard]] bool hasClassification(Classification value) const
    {
        return classifications_.has(value);
    }
    [[nodiscard]] int getClassificationBitField() const { return classifications_.bitField(); }
    [[nodiscard]] bool isValidForAllClassifications() const { return classifications_.isEmpty(); }
    void clearClassifications() { classifications_.clear(); }

    void addBridgeType(BridgeType type) { bridgeTypes_.add(type); }
    [[nodiscard]] bool hasBridgeType(BridgeType type) const { return bridgeTypes_.has(type); }
    [[nodiscard]] int getBridgeTypeBitField() const { return bridgeTypes_.bitField(); }
    [[nodiscard]] bool isValidForAllBridgeTypes() const { return bridgeTypes_.isEmpty(); }
    void clearBridgeTypes() { bridgeTypes_.clear(); }

    // The factors in force of the action type; setting one changes it for every attribute of that
    // type. Without an action type the getters give 1.0, but getPsi21 and getPsi22 0.0, and the
    // setters do nothing.

    [[nodiscard]] double getGammaSup() const;
    [[nodiscard]] double getGammaInf() const;
    [[nodiscard]] double getPsi0() const;
    [[nodiscard]] double getPsi1() const;
    [[nodiscard]] double getPsi2() const;
    [[nodiscard]] double getPsi11() const;
    [[nodiscard]] double getPsi21() const;
    [[nodiscard]] double getPsi22() const;
    [[nodiscard]] double getCrackRed() const;

    void setGammaSup(double value);
    void setGammaInf(double value);
    void setPsi0(double value);
    void setPsi1(double value);
    void setPsi2(double value);
    void setPsi11(double value);
    void setPsi21(double value);
    void setPsi22(double value);
    void setCrackRed(double value);

    /// As ActionType's; 1.0 without an action type.
    [[nodiscard]] double getGammaSupReduced() const;
    [[nodiscard]] double getGammaInfReduced() const;

    /// "+", "?", "+(0?)", "?(0?)"; one blank for NONE and any other value.
    [[nodiscard]] std::string getOperatorString() const;

    /// True when the attribute is valid for the classification and the code in force and, on a
    /// bridge, for the bridge type and the design material.
    [[nodiscard]] bool isActive() const;

    /// False for tokens that make no sense on a bridge of the design material in force; true on
    /// buildings. StateAttributeValidator has rules of its own, which differ: these here also drop
    /// prestress on every bridge but of timber or rope, and the effects of construction on steel
    /// girders with a concrete slab. Both are wanted, for different callers.
    [[nodiscard]] bool isValidForBridgeDesignType() const;

    /// 1 or 0. Compares the base, the action types by value, the groups and the validity; not the
    /// instance flag.
    [[nodiscard]] int operator==(const StateAttribute& other) const;
    [[nodiscard]] int operator!=(const StateAttribute& other) const;

private:
    /// The bit of a value, in spite of its name; 0 for a value that does not fit.
    [[nodiscard]] static int fromBit(int value)
    {
        const unsigned int place = static_cast<unsigned int>(value) + 3;
        return place < 32 ? static_cast<int>(1U << place) : 0;
    }

    /// A set of values: those that fit are bits, others are kept in their order.
    class ZELSTANDARD_API Validity
    {
    public:
        template <class Value> void add(Value value)
        {
            const int number = static_cast<int>(value);
            bits_ |= fromBit(number);
            if (!has(value))
                addOther(number);
        }
        template <class Value> [[nodiscard]] bool has(Value value) const
        {
            const int number = static_cast<int>(value);
            const int bit = fromBit(number);
            return bit ? (bits_ & bit) != 0 : hasOther(number);
        }
        [[nodiscard]] int bitField() const { return bits_; }
        [[nodiscard]] bool isEmpty() const { return bits_ == 0 && others_.empty(); }
        void clear() { *this = Validity(); }
        [[nodiscard]] bool operator!=(const Validity& other) const
        {
            return bits_ != other.bits_ || others_ != other.others_;
        }

    private:
        void addOther(int value);
        [[nodiscard]] bool hasOther(int value) const;

        int bits_ = 0;
        std::vector<int> others_;
    };

    Validity classifications_;
    Validity standards_;
    Validity bridgeTypes_;
    ActionType* actionType_;
    int exclGroup_ = 0;
    int combGroup_ = 0;
    int instanceFlag_ = 0;
};

} // namespace Standard
