#include <command/batch/Prove.h>

#include <ostream>

namespace command
{

namespace
{

class Proof
{
public:
    explicit Proof(std::ostream& out) : out_(out) {}

    void compare(const std::string& what, double derived, double given)
    {
        ++count_;
        if (derived == given)
            return;
        ++faults_;
        out_ << what << ": derived " << numberText(derived, 0) << ", the library answers "
             << numberText(given, 0) << '\n';
    }

    void expect(bool isSo, const std::string& what)
    {
        if (isSo)
            return;
        ++faults_;
        out_ << what << '\n';
    }

    int finish()
    {
        out_ << count_ << " values derived, " << faults_ << " differ from the library\n";
        return faults_ == 0 ? 0 : 1;
    }

private:
    std::ostream& out_;
    std::size_t count_ = 0;
    std::size_t faults_ = 0;
};

/// Codes and bridge types beyond those with words, since an unknown word makes sets for them too.
void proveType(Proof& proof, const ActionValues& derived, const Standard::ActionType& type)
{
    for (int code = 0; code <= 8; ++code)
        for (int bridgeType = -1; bridgeType <= 6; ++bridgeType) {
            const Structure structure = bridgeType < 0 ? building : bridge(BridgeType{bridgeType});
            const std::string what =
                derived.word + " " + wordOf(Mode{code}) + " " + wordOf(structure);
            const FactorSet* set = derived.find(Mode{code}, structure);
            const SafetyFactors* given =
                type.getFactors(Mode{code}, structure.classification, structure.bridgeType);
            proof.expect(!set == !given,
                         what + ": " + (given ? "no set derived" : "a set that the library lacks"));
            if (!set || !given)
                continue;
            for (const FactorRow& factor : factors) {
                const Value& value = (*set)[factor.value];
                proof.compare(what + " " + factor.key, value.number, (given->*factor.get)());
                proof.expect(!value.steps.empty() && value.steps.back().value == value.number,
                             what + " " + factor.key + ": the last step is not the value");
            }
        }
}

} // namespace

int prove(const Context& context, std::ostream& out)
{
    Proof proof(out);
    const auto& derived = context.data().actionValues().types();
    const auto& given = context.data().actions().getActionTypes();
    proof.expect(derived.size() == given.size(), "the library has another number of actions");
    for (std::size_t i = 0; i < std::min(derived.size(), given.size()); ++i)
        proveType(proof, derived[i], *given[i]);
    const MaterialFile& materials = context.data().materialValues();
    for (const MaterialRow& table : materialTables)
        for (const Mode code : allCodes())
            for (std::size_t column = 0; column < columnsOf(table).size(); ++column)
                proof.compare(
                    std::string(table.table) + " " + wordOf(code) + " " + columnsOf(table)[column],
                    materials.find(table, code, column).number, valueOf(table, code, column));
    return proof.finish();
}

} // namespace command
