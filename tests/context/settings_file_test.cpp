#include <zelstandard/context/IO.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelXml.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

#include "support/Context.h"
#include "support/Files.h"
#include "support/Golden.h"

using namespace Standard;
using support::FreshContext;
using support::readFile;
using support::TemporaryDirectory;

namespace
{

/// All settings away from their defaults and from those of FreshContext.
void setOthers(ZelStandard& context)
{
    context.setMode(Mode::DIN_EN);
    context.setClassification(Classification::BRIDGE);
    context.setBridgeType(BridgeType::RAILWAY3);
    context.setBuildingType(BuildingType::ENGINEERING);
    context.setDesignMaterial(DesignMaterial::COMPOSITE_CONCRETE);
    context.setSituation(DesignSituation::ACCIDENTAL_EQ);
    context.setDuctilityClass(DuctilityClass::DCL);
    context.setServiceClass(2);
}

/// The settings as numbers, in the order of the file.
std::string settings()
{
    const ZelStandard& context = *ZelStandard::get();
    std::ostringstream numbers;
    numbers << static_cast<int>(context.getMode()) << " "
            << static_cast<int>(context.getClassification()) << " "
            << static_cast<int>(context.getBridgeType()) << " "
            << static_cast<int>(context.getBuildingType()) << " "
            << static_cast<int>(context.getDesignMaterial()) << " "
            << static_cast<int>(context.getSituation()) << " "
            << static_cast<int>(context.getDuctilityClass()) << " " << context.getServiceClass();
    return numbers.str();
}

const std::string others = "8 2 4 2 5 2 0 2";

class SettingsFile : public testing::Test
{
protected:
    /// Reads a document over settings that differ from every default.
    void read(const std::string& document)
    {
        setOthers(*ZelStandard::get());
        context_->input(directory_.write("read.xml", document));
    }

    FreshContext context_;
    TemporaryDirectory directory_;
};

std::string inSettings(const std::string& elements)
{
    return "<SMOD><SETTINGS>" + elements + "</SETTINGS></SMOD>";
}

} // namespace

TEST_F(SettingsFile, ReadsBackAsItWasWritten)
{
    setOthers(*ZelStandard::get());
    // The file is replaced as a whole.
    const std::string file = directory_.write(
        "full.xml", "<SMOD><SETTINGS/><COEFFICIENTS/></SMOD>" + std::string(10000, '\n'));
    context_->output(file);
    support::expectGolden("settings.xml", support::unixLines(readFile(file)));
    read("<SMOD><SETTINGS/></SMOD>");
    context_->input(file);
    EXPECT_EQ(settings(), others);
}

TEST_F(SettingsFile, SetsWhatIsMissingOrUnknownToFixedValues)
{
    // What the settings are afterwards: no code, building, no bridge type (given as ROADWAY), no
    // building type, no material, persistent situation, DCL, service class 1.
    const std::string fallback = "0 1 1 0 -1 0 0 1";
    read("<SMOD><SETTINGS/></SMOD>");
    EXPECT_EQ(settings(), fallback);
    EXPECT_EQ(context_->getNUTZ(false), 31);
    context_->setClassification(Classification::BRIDGE);
    EXPECT_FALSE(context_->isRailwayBridge()) << "the stored bridge type is 0";

    read(inSettings("<STANDARD_MODE>din-en</STANDARD_MODE>"
                    "<CLASSIFICATION_MODE>bridge</CLASSIFICATION_MODE>"
                    "<BRIDGETYPE>CANAL</BRIDGETYPE><BUILDINGTYPE>HOUSE</BUILDINGTYPE>"
                    "<DESIGNMATERIAL>GLASS</DESIGNMATERIAL><SITUATION>FIRE</SITUATION>"
                    "<DUCTILITY_CLASSIFICATION>DCX</DUCTILITY_CLASSIFICATION>"
                    "<SERVICE_CLASS>two</SERVICE_CLASS>"));
    EXPECT_EQ(settings(), fallback);

    // One that is there does not keep the others.
    read(inSettings("<DESIGNMATERIAL>TIMBER</DESIGNMATERIAL>"));
    EXPECT_EQ(settings(), "0 1 1 0 2 0 0 1");
    // Elements one level further down do not count, attributes neither.
    read(inSettings("<OLD><STANDARD_MODE>BS</STANDARD_MODE></OLD><X STANDARD_MODE=\"BS\"/>"));
    EXPECT_EQ(settings(), fallback);
}

TEST_F(SettingsFile, TakesServiceClassesOneToThree)
{
    const std::pair<const char*, int> cases[] = {
        {"3",           3},
        {" 3 ",         3},
        {"4",           1},
        {"0",           1},
        {"-2",          1},
        {"2.5",         1},
        {"",            1},
        {"99999999999", 1}
    };
    for (const auto& [text, expected] : cases) {
        read(inSettings("<SERVICE_CLASS>" + std::string(text) + "</SERVICE_CLASS>"));
        EXPECT_EQ(context_->getServiceClass(), expected) << "'" << text << "'";
    }
}

TEST_F(SettingsFile, IsFoundBelowAnyRoot)
{
    const std::string timber = "<SETTINGS><DESIGNMATERIAL>TIMBER</DESIGNMATERIAL></SETTINGS>";
    const std::string rope = "<SETTINGS><DESIGNMATERIAL>ROPE</DESIGNMATERIAL></SETTINGS>";
    for (const std::string& document :
         {timber, "<OTHER>" + timber + "</OTHER>", "<A><B/><B><C>" + timber + "</C></B></A>",
          // Of several the first in the document counts, at whatever depth.
          "<A><B><C>" + timber + "</C></B>" + rope + "</A>"}) {
        read(document);
        EXPECT_EQ(context_->getDesignMaterial(), DesignMaterial::TIMBER) << document;
    }
}

TEST_F(SettingsFile, ChangesNothingWhenItCannotBeRead)
{
    for (const char* document :
         {"", "no xml", "<SMOD/>", "<SMOD><COEFFICIENTS/></SMOD>",
          "<SMOD><settings><STANDARD_MODE>BS</STANDARD_MODE></settings></SMOD>",
          "<SMOD><SETTINGS><STANDARD_MODE>BS</STANDARD_MODE></SETTINGS>"}) {
        read(document);
        EXPECT_EQ(settings(), others) << document;
    }
    for (const std::string& path : {directory_.file("missing.xml"), directory_.path().string(),
                                    directory_.file("missing") + "/settings.xml", std::string()}) {
        context_->input(path);
        EXPECT_EQ(settings(), others) << path;
    }
}

TEST_F(SettingsFile, GoesIntoATreeWithoutTouchingTheRest)
{
    std::istringstream input("<SMOD><!-- first --><COEFFICIENTS><ANNEX NAME=\"EC\"/></COEFFICIENTS>"
                             "<SETTINGS><DESIGNMATERIAL>GLASS</DESIGNMATERIAL><OWN>kept</OWN>"
                             "</SETTINGS><STRESSBLOCK><ETA>1.00</ETA></STRESSBLOCK></SMOD>");
    ZelXmlTree tree;
    ASSERT_TRUE(tree.buildOfStream(input));
    setOthers(*ZelStandard::get());
    IO::write(tree, ZelStandard::get());
    std::ostringstream output;
    tree.putToStream(output, true);
    support::expectGolden("settings_in_tree.xml", output.str());
}

TEST_F(SettingsFile, GoesIntoTheOpenElementOfATree)
{
    ZelXmlTree tree;
    tree.open("HOST", false);
    tree.open("PROJECT", false);
    setOthers(*ZelStandard::get());
    IO::write(tree, ZelStandard::get());
    const ZelXmlData* project = ZelXmlData::findChild(tree.getRoot(), "PROJECT");
    const ZelXmlData* element = ZelXmlData::findChild(project, "SETTINGS");
    EXPECT_EQ(ZelXmlDataUtil::getChildString(element, "STANDARD_MODE"), "DIN-EN");
    // The element that was open is still open.
    tree.open("LAST", false);
    EXPECT_NE(ZelXmlData::findChild(project, "LAST"), nullptr);
    EXPECT_EQ(ZelXmlData::findChild(element, "LAST"), nullptr);
}
