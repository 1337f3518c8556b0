#pragma once

#include <memory>
#include <string>

#include <zelstandard/Export.h>
#include <zelstandard/actions/ActionGroup.h>
#include <zelstandard/actions/SafetyFactors.h>
#include <zelstandard/platform/Nullable.h>
#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// A kind of action (dead load, snow, load model 71 ...) with its factors for every design code and
/// structure that it has any for.
///
/// Building factors are kept per code, bridge factors per code and bridge type. Every
/// classification other than BUILDING means the bridge factors.
///
/// "The set in force" is the one for the mode, classification and bridge type that
/// ZelStandard::get() holds at the moment of the call.
///
/// Several threads may read types that none changes, while none changes the settings either.
class ZELSTANDARD_API ActionType
{
public:
    using Id = ActionTypeId;

    /// 51, one less than there are values of Id; this is wanted, and it means that a loop below
    /// IdCount leaves CRANE out.
    static const int IdCount;

    /// No factors, no group, load duration class MEDIUMTERM.
    explicit ActionType(Id id);
    /// Deep copies: no set of factors is shared with the source; the action group is.
    ActionType(const ActionType& other);
    ActionType& operator=(const ActionType& other);
    ~ActionType();

    [[nodiscard]] Id getId() const { return id_; }

    /// Owned by ActionGroupManager; null when unset.
    [[nodiscard]] ActionGroup* getActionGroup() const { return actionGroup_; }
    void setActionGroup(ActionGroup* group) { actionGroup_ = group; }
    /// NONE when no group is set.
    [[nodiscard]] ActionGroup::Type getActionGroupId() const;

    [[nodiscard]] LoadDuration getLoadDurationClass() const { return loadDuration_; }
    void setLoadDurationClass(LoadDuration duration) { loadDuration_ = duration; }

    /// Compares identity, group and load duration, then every set that this type has with the
    /// other's. A set that only the other type has is not seen: this is wanted, and it means that
    /// the result may change when the operands change places.
    [[nodiscard]] bool operator!=(const ActionType& other) const;
    [[nodiscard]] bool operator==(const ActionType& other) const;

    /// The set of factors, owned by this type; null when there is none.
    [[nodiscard]] SafetyFactors* getFactors(Mode mode, Classification classification,
                                            BridgeType bridgeType) const;

    /// The set of factors, created with all fields 0 when there is none.
    SafetyFactors* giveFactors(Mode mode, Classification classification, BridgeType bridgeType);

    // The factors of the set in force. Without one the getters give 1.0, but getPsi21 and getPsi22
    // 0.0, and the setters do nothing.

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

    /// Gamma times the crack reduction, for concrete and for precast girders with in-situ concrete
    /// and only for a gamma above 0.99: one of 0.99 or less is never reduced. Else gamma as it
    /// stands; 1.0 without a set in force.
    [[nodiscard]] double getGammaSupReduced() const;
    [[nodiscard]] double getGammaInfReduced() const;

    /// True when there is a set in force.
    [[nodiscard]] bool hasSafetyFactors() const;
    [[nodiscard]] bool isActive() const;

    /// True when the code has a set for a building or for a bridge type up to FOOTBRIDGE1. A set
    /// for FOOTBRIDGE2 alone is not looked at; this is wanted.
    [[nodiscard]] bool hasValues(Mode mode) const;

    /// True for the secondary effects of prestress, deformation and shrinkage (PTG1 to SSHI).
    [[nodiscard]] bool isSecondary() const;

    /// Copies every set of EC into the same place of the given code. Sets of the code that EC lacks
    /// stay as they are.
    void copyFromEC(Mode mode);

    /// Makes all sets deep copies of the other type's; identity, group and load duration stay.
    void copyGammasAndPsis(const ActionType& other);

    /// Merges the given factors (those of 0 or more) into every existing set of the code.
    void takeOver(Mode mode, const SafetyFactors& factors);

    /// The display name; "-" for the internal types without one.
    [[nodiscard]] std::string getName() const;
    [[nodiscard]] std::string getReportName() const;

    /// The name, for imposed loads followed by the category's use in parentheses.
    [[nodiscard]] std::string getDescription() const;
    [[nodiscard]] std::string getReportDescription() const;

    /// The type that a text id stands for in old data; NONE for any other id. Not the inverse of
    /// the names: several texts share a type, and the texts of EARTH and EARTH_0 mean G2, that of
    /// EARTH_Q means U. This is wanted.
    [[nodiscard]] static Id getIdByTextId(unsigned int textId);

private:
    struct Values;

    [[nodiscard]] SafetyFactors* currentFactors() const;
    template <double (SafetyFactors::*get)() const>
    [[nodiscard]] double inForce(double without) const;
    template <void (SafetyFactors::*set)(double)> void change(double value);
    [[nodiscard]] double reduced(double gamma) const;
    [[nodiscard]] bool isImposedLoadType() const;
    [[nodiscard]] static bool isConreteType();
    [[nodiscard]] std::string getDescriptionText() const;
    [[nodiscard]] std::string getReportDescriptionText() const;
    [[nodiscard]] zelt::Nullable<unsigned int> getTextId() const;
    [[nodiscard]] unsigned int determineDescriptionId() const;

    std::unique_ptr<Values> values_;
    Id id_;
    ActionGroup* actionGroup_ = nullptr;
    LoadDuration loadDuration_ = LoadDuration::MEDIUMTERM;
};

} // namespace Standard
