// Settings, coefficients, control values and action types may share one document.

#include <algorithm>
#include <array>

#include <zelstandard/context/IO.h>

#include "actions/Catalogue.h"
#include "material/CoefficientTables.h"
#include "material/ControlRecords.h"

using namespace Standard;

namespace
{

ActionTypeManager& actions()
{
    static ActionTypeManager catalogue = support::readCatalogue(R"(<SMOD><ACTIONTYPES>
        <ACTIONTYPE NAME="SNOW"><ACTIONGROUP>SNOW</ACTIONGROUP><LOADDURATION>SHORTTERM</LOADDURATION>
          <ANNEXES><ANNEX NAME="EC"><CLASSIFICATION NAME="BUILDING"><PSI0>0.5</PSI0>
            <GAMMA_SUP>1.5</GAMMA_SUP></CLASSIFICATION></ANNEX></ANNEXES></ACTIONTYPE>
        <ACTIONTYPE NAME="G1"><ACTIONGROUP>G</ACTIONGROUP><LOADDURATION>PERMANENT</LOADDURATION>
          <ANNEXES/></ACTIONTYPE></ACTIONTYPES></SMOD>)");
    return catalogue;
}

enum class Writer { settings, coefficients, control, actionTypes };

constexpr const char* names[] = {"settings", "coefficients", "control values", "action types"};

void write(Writer writer, ZelXmlTree& tree)
{
    switch (writer) {
    case Writer::settings:
        return IO::write(tree, ZelStandard::get());
    case Writer::coefficients:
        return Coefficients::get()->output(tree);
    case Writer::control:
        return Control::output(tree);
    case Writer::actionTypes:
        return actions().output(tree);
    }
}

/// All that the document holds.
std::string state()
{
    const ZelStandard& context = *ZelStandard::get();
    std::string settings;
    for (const int value :
         {static_cast<int>(context.getMode()), static_cast<int>(context.getClassification()),
          static_cast<int>(context.getBridgeType()), static_cast<int>(context.getBuildingType()),
          static_cast<int>(context.getDesignMaterial()), static_cast<int>(context.getSituation()),
          static_cast<int>(context.getDuctilityClass()), context.getServiceClass()})
        settings += std::to_string(value) + " ";
    return settings + "\n" + support::values() + support::records() + "\n" +
           support::contents(actions());
}

void forget()
{
    ZelStandard::kill();
    support::clearCoefficients();
    support::setRecord(Mode::EC, 1, 1, 9, 9, 9, false);
    support::setRecord(Mode::DIN_1988, 1, 1, 9, 9, 9, false);
    actions().init(ZelXmlTree());
}

void read(const ZelXmlTree& tree)
{
    IO::read(tree.getRoot(), ZelStandard::get());
    Coefficients::get()->input(tree.getRoot());
    Control::input(tree);
    actions().init(tree);
}

class OneDocument : public testing::Test
{
protected:
    OneDocument()
    {
        context_->setMode(Mode::CSN);
        context_->setClassification(Classification::BRIDGE);
        context_->setBridgeType(BridgeType::RAILWAY2);
        context_->setBuildingType(BuildingType::ENGINEERING);
        context_->setDesignMaterial(DesignMaterial::COMPOSITE_STEEL);
        context_->setSituation(DesignSituation::ACCIDENTAL);
        context_->setDuctilityClass(DuctilityClass::DCH);
        context_->setServiceClass(3);
        support::setDistinctValues();
        support::setRecord(Mode::EC, 1, 1, 0.1, 0.2, 0.3, false);
        support::setRecord(Mode::DIN_1988, 1, 1, 0.4, 0.5, 0.6, false);
    }

    support::FreshContext context_;
};

} // namespace

TEST_F(OneDocument, IsReadAgainByAllWhateverTheOrderOfTheirWriting)
{
    const std::string before = state();
    std::array order{Writer::settings, Writer::coefficients, Writer::control, Writer::actionTypes};
    do {
        for (const char* open : {"", "SMOD", "PROFILE"}) {
            ZelXmlTree tree;
            if (*open)
                tree.open(open, false);
            std::string trace = std::string("into '") + open + "'";
            for (const Writer writer : order) {
                write(writer, tree);
                trace += std::string(", ") + names[static_cast<int>(writer)];
            }
            SCOPED_TRACE(trace);
            const std::string document = support::raw(tree);

            // A tree takes a document with one root only.
            ZelXmlTree again;
            ASSERT_TRUE(support::build(again, document)) << document;
            forget();
            ASSERT_NE(state(), before);
            read(again);
            EXPECT_EQ(state(), before);

            // Writing once more, now in one order, finds what there is.
            for (const Writer writer :
                 {Writer::actionTypes, Writer::control, Writer::coefficients, Writer::settings})
                write(writer, again);
            EXPECT_EQ(support::raw(again), document);
        }
    } while (std::ranges::next_permutation(order).found);
}
