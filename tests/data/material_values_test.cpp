// The material coefficients and the stress block of the shipped settings file, against a
// transcription of the standards' values that was made without looking at the file.

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

#include <zelstandard/material/Coefficients.h>
#include <zelstandard/material/Control.h>

#include "data/Shipped.h"
#include "data/Tables.h"
#include "support/Context.h"

using namespace Standard;
using support::Row;

namespace
{

/// The rows of a table by "element code".
std::map<std::string, Row> byCode(const std::string& table)
{
    std::map<std::string, Row> result;
    for (const Row& row : support::readTable(table))
        result[row.at("element") + " " + row.at("code")] = row;
    return result;
}

/// The code's own value, else that of EC.
double expected(const std::map<std::string, Row>& rows, const std::string& element, Mode code,
                const std::string& column)
{
    const auto own = rows.find(element + " " + support::codeWord(code));
    const std::string text = own != rows.end() ? own->second.at(column) : "-";
    return std::stod(text != "-" ? text : rows.at(element + " EC").at(column));
}

using PartialFactor = double (Coefficients::*)(Mode, DesignSituation) const;
using LongTerm = double (Coefficients::*)(Mode, Classification) const;

void expectCoefficientsOfTheStandards()
{
    const Coefficients& coefficients = *Coefficients::get();
    const auto materials = byCode("materials.txt");
    const auto alphas = byCode("alphas.txt");
    const std::pair<std::string, PartialFactor> partialFactors[] = {
        {"GAMMA_S",  &Coefficients::getGammaS },
        {"GAMMA_C",  &Coefficients::getGammaC },
        {"GAMMA_A",  &Coefficients::getGammaA },
        {"GAMMA_T",  &Coefficients::getGammaT },
        {"GAMMA_F",  &Coefficients::getGammaF },
        {"GAMMA_R",  &Coefficients::getGammaR },
        {"GAMMA_RV", &Coefficients::getGammaRV},
        {"GAMMA_RH", &Coefficients::getGammaRH},
        {"GAMMA_RE", &Coefficients::getGammaRE},
    };
    const std::pair<std::string, LongTerm> longTerm[] = {
        {"ALPHA_CC", &Coefficients::getAlphaCC},
        {"ALPHA_CT", &Coefficients::getAlphaCT},
    };
    // The seismic situation repeats the persistent value.
    const std::pair<std::string, DesignSituation> situations[] = {
        {"persistent", DesignSituation::PERSISTENT   },
        {"accidental", DesignSituation::ACCIDENTAL   },
        {"persistent", DesignSituation::ACCIDENTAL_EQ},
    };
    const std::pair<std::string, Classification> structures[] = {
        {"building", Classification::BUILDING},
        {"bridge",   Classification::BRIDGE  },
    };
    for (const Mode code : support::codes()) {
        SCOPED_TRACE(support::codeWord(code));
        for (const auto& [element, get] : partialFactors)
            for (const auto& [column, situation] : situations)
                EXPECT_EQ((coefficients.*get)(code, situation),
                          expected(materials, element, code, column))
                    << element << " " << static_cast<int>(situation);
        for (const auto& [element, get] : longTerm)
            for (const auto& [column, structure] : structures)
                EXPECT_EQ((coefficients.*get)(code, structure),
                          expected(alphas, element, code, column))
                    << element << " " << column;
    }
}

/// Gives every coefficient of every code the value 9.
void spoilCoefficients()
{
    std::string document = "<COEFFICIENTS>";
    for (const std::string table :
         {"GAMMA_S", "GAMMA_C", "GAMMA_A", "GAMMA_T", "GAMMA_F", "GAMMA_R", "GAMMA_RV", "GAMMA_RH",
          "GAMMA_RE", "ALPHA_CC", "ALPHA_CT"})
        document += "<" + table +
                    "><ANNEX NAME='EC'><PERSISTENT>9</PERSISTENT><ACCIDENTAL>9</ACCIDENTAL>"
                    "<ACCIDENTAL_EQ>9</ACCIDENTAL_EQ><BUILDING>9</BUILDING><BRIDGE>9</BRIDGE>"
                    "</ANNEX></" +
                    table + ">";
    const support::TemporaryDirectory folder;
    Coefficients::get()->input(folder.write("nines.xml", document + "</COEFFICIENTS>"));
    ASSERT_EQ(Coefficients::get()->getAlphaCT(Mode::DIN_EN, Classification::BRIDGE), 9);
}

} // namespace

TEST(MaterialValues, AreThoseOfTheStandardsAndSurviveSaving)
{
    const support::FreshContext context;
    spoilCoefficients();
    Coefficients::get()->input(support::settingsFile);
    expectCoefficientsOfTheStandards();

    const support::TemporaryDirectory folder;
    Coefficients::get()->output(folder.file("saved.xml"));
    spoilCoefficients();
    Coefficients::get()->input(folder.file("saved.xml"));
    SCOPED_TRACE("saved and read again");
    expectCoefficientsOfTheStandards();
}

TEST(MaterialValues, TheStressBlockIsThatOfEurocodeForAllCodesButDin1988)
{
    const support::FreshContext context;
    Control::input(support::settingsFile);

    std::map<std::string, double> value; // by element
    for (const Row& row : support::readTable("stress_block.txt"))
        value[row.at("element")] = std::stod(row.at("value"));
    for (const Mode code : support::codes()) {
        const bool global = code == Mode::DIN_1988; // no stress block, but a global factor
        const std::string where = support::codeWord(code);
        EXPECT_EQ(Control::getCompressionLambda(code), global ? 0 : value.at("LAMBDA")) << where;
        EXPECT_EQ(Control::getCompressionEta(code), global ? 0 : value.at("ETA")) << where;
        EXPECT_EQ(Control::getStrutFactor(code), global ? 0 : value.at("STRUTFACTOR")) << where;
    }
}
