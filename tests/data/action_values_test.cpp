// The factors of the shipped action types: as a table for each code that a person can hold beside
// the printed standard (tests/golden/factors-*.txt), and against a transcription of the standards'
// tables that was made without looking at the file (tests/data/tables).

#include <gtest/gtest.h>

#include <iomanip>
#include <map>
#include <optional>
#include <sstream>
#include <string>

#include "actions/Catalogue.h"
#include "data/Shipped.h"
#include "data/Tables.h"
#include "support/Golden.h"

using namespace Standard;
using support::Row;

namespace
{

const SafetyFactors* factors(const ActionType& type, Mode code, const support::Structure& structure)
{
    return type.getFactors(code, structure.classification, structure.bridgeType);
}

/// All action types by structure, nine factors each; "-" where a type has none.
std::string factorTable(const ActionTypeManager& catalogue, Mode code)
{
    std::string result;
    for (const support::Structure& structure : support::structures) {
        result += "== " + support::codeWord(code) + " " + structure.word + "\n";
        result += "            sup   inf   psi0  psi1  psi2  psi11 psi21 psi22 crack\n";
        for (const ActionType* type : catalogue.getActionTypes()) {
            std::ostringstream line;
            line << std::left << std::setw(12)
                 << XMLUtil::get()->getStringToActionType(type->getId());
            const SafetyFactors* set = factors(*type, code, structure);
            std::istringstream cells(set ? support::text(*set) : "-");
            for (std::string cell; cells >> cell;)
                line << std::setw(6) << cell;
            result += line.str().substr(0, line.str().find_last_not_of(' ') + 1) + "\n";
        }
        result += "\n";
    }
    return result;
}

/// The transcribed tables, and the reading of the words of action types as their rows.
class Transcription
{
public:
    Transcription()
    {
        for (const std::string table : {"A1.1", "A2.1", "A2.2", "A2.3", "conventions", "national"})
            for (const Row& row : support::readTable(table + ".txt"))
                psi_[table + " " + row.at("row")] = row;
        for (const Row& row : support::readTable("gammas.txt"))
            gamma_[row.at("row")] = row;
        for (const Row& row : support::readTable("words.txt"))
            words_[row.at("word") + " " + row.at("structure")] = row;
        for (const Row& row : support::readTable("words_national.txt"))
            national_[row.at("code") + " " + row.at("word") + " " + row.at("structure")] = row;
    }

    /// Empty where the action makes no sense for the structure.
    [[nodiscard]] std::optional<SafetyFactors> expected(Mode code, const std::string& structure,
                                                        const std::string& word) const
    {
        const bool railway = structure.starts_with("RAILWAY");
        const std::string key = word + " " + (railway ? "RAILWAY" : structure);
        const auto general = words_.find(key);
        if (general == words_.end())
            return {};
        std::string psi = general->second.at("psi");
        std::string gamma = general->second.at("gamma");
        const auto own = national_.find(support::codeWord(code) + " " + key);
        if (own != national_.end()) {
            if (own->second.at("psi") != "-")
                psi = own->second.at("psi");
            if (own->second.at("gamma") != "-")
                gamma = own->second.at("gamma");
        }
        if (code == Mode::DIN_1988) {
            psi = "conventions global";
            const bool permanent = std::stod(gamma_.at(gamma).at("inf")) > 0;
            gamma = permanent ? "global permanent" : "global variable";
        }
        return factorsOf(psi_.at(psi), gamma_.at(gamma), structure);
    }

private:
    /// A missing psi1 repeats psi2, and a missing psi2 is 0. psi11 is the infrequent value where
    /// the table has one, else psi1; psi21 and psi22 repeat psi2.
    static SafetyFactors factorsOf(const Row& psi, const Row& gamma, const std::string& structure)
    {
        const auto number = [&](const std::string& text, double missing) {
            if (text == "-")
                return missing;
            if (text == "psi1(n)") // by the number of loaded tracks
                return structure == "RAILWAY1" ? 0.8 : structure == "RAILWAY2" ? 0.7 : 0.6;
            return std::stod(text);
        };
        SafetyFactors result;
        result.setGammaSup(number(gamma.at("sup"), -1));
        result.setGammaInf(number(gamma.at("inf"), -1));
        result.setPsi0(number(psi.at("psi0"), -1));
        result.setPsi2(number(psi.at("psi2"), 0));
        result.setPsi1(number(psi.at("psi1"), result.getPsi2()));
        const bool infrequent = psi.contains("psi1,infq");
        result.setPsi11(number(infrequent ? psi.at("psi1,infq") : "-", result.getPsi1()));
        result.setPsi21(result.getPsi2());
        result.setPsi22(result.getPsi2());
        result.setCrackRed(1);
        return result;
    }

    std::map<std::string, Row> psi_;
    std::map<std::string, Row> gamma_;
    std::map<std::string, Row> words_;
    std::map<std::string, Row> national_;
};

} // namespace

TEST(ActionValues, OfEachCodeAreATable)
{
    const ActionTypeManager catalogue(support::actionTypeFile);
    for (const Mode code : support::codes())
        support::expectGolden("factors-" + support::codeWord(code) + ".txt",
                              factorTable(catalogue, code));
}

TEST(ActionValues, AreThoseOfTheStandardsTables)
{
    const ActionTypeManager catalogue(support::actionTypeFile);
    const Transcription transcription;
    int compared = 0;
    for (const Mode code : support::codes()) {
        for (const support::Structure& structure : support::structures) {
            for (const auto& row : actionTypeIdWords) {
                const ActionType* type = catalogue.findActionType(row.value);
                const SafetyFactors* set = type ? factors(*type, code, structure) : nullptr;
                const auto expected = transcription.expected(code, structure.word, row.word);
                compared += set && expected ? 1 : 0;
                EXPECT_EQ(set ? support::text(*set) : "no factors",
                          expected ? support::text(*expected) : "no factors")
                    << support::codeWord(code) << " " << structure.word << " " << row.word
                    << ": on the left the file, on the right the transcription";
            }
        }
    }
    EXPECT_GT(compared, 1000);
}
