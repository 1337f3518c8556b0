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

constexpr std::array all{Writer::settings, Writer::coefficients, Writer::control,
                         Writer::actionTypes};

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
    std::string text;
    for (const Writer writer : all) {
        ZelXmlTree tree;
        write(writer, tree);
        text += support::raw(tree) + "\n";
    }
    return text;
}

void forget()
{
    ZelStandard::kill();
    support::clearCoefficients();
    support::setRecord(Mode::EC, {1, 1, 9, 9, 9, 0});
    support::setRecord(Mode::DIN_1988, {1, 1, 9, 9, 9, 0});
    actions().init(ZelXmlTree());
}

void read(const ZelXmlTree& tree)
{
    IO::read(tree.getRoot(), ZelStandard::get());
    Coefficients::get()->input(tree.getRoot());
    Control::input(tree);
    actions().init(tree);
}

} // namespace

TEST(OneDocument, IsReadAgainByAllWhateverTheOrderOfTheirWriting)
{
    const support::FreshContext context;
    context->setMode(Mode::CSN);
    context->setClassification(Classification::BRIDGE);
    context->setBridgeType(BridgeType::RAILWAY2);
    context->setDesignMaterial(DesignMaterial::COMPOSITE_STEEL);
    context->setServiceClass(3);
    support::setDistinctValues();
    support::setRecord(Mode::EC, {1, 1, 0.1, 0.2, 0.3, 0});
    support::setRecord(Mode::DIN_1988, {1, 1, 0.4, 0.5, 0.6, 0});
    const std::string before = state();
    std::array order = all;
    do {
        for (const char* open : {"", "SMOD", "PROFILE"}) {
            ZelXmlTree tree;
            if (*open)
                tree.open(open, false);
            for (const Writer writer : order)
                write(writer, tree);
            const std::string document = support::raw(tree);
            SCOPED_TRACE(document.substr(0, 200));

            // A tree takes a document with one root only.
            ZelXmlTree again;
            ASSERT_TRUE(support::build(again, document));
            forget();
            ASSERT_NE(state(), before);
            read(again);
            EXPECT_EQ(state(), before);

            // Writing once more, now in one order, finds what there is.
            for (const Writer writer : all)
                write(writer, again);
            EXPECT_EQ(support::raw(again), document);
        }
    } while (std::ranges::next_permutation(order).found);
}
