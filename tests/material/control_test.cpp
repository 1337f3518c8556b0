#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

/// Records without settings file, each value with a value of its own.
class ControlTest : public testing::Test
{
protected:
    ControlTest() { reset(); }

    static void reset()
    {
        setRecord(Mode::EC, {1.1, 1.2, 0.1, 0.2, 0.3, 0});
        setRecord(Mode::DIN_1988, {2.1, 2.2, 0.4, 0.5, 0.6, 1});
    }

    FreshContext context_;
};

constexpr const char* before = "1.1 1.2 0.1 0.2 0.3 0; 2.1 2.2 0.4 0.5 0.6 1";

void readControl(const std::string& document)
{
    ZelXmlTree tree;
    build(tree, document);
    Control::input(tree);
}

std::string annex(const std::string& code, const char* strutFactor, const char* eta,
                  const char* lambda)
{
    return "<ANNEX NAME=\"" + code + "\"><STRUTFACTOR>" + strutFactor + "</STRUTFACTOR><ETA>" +
           eta + "</ETA><LAMBDA>" + lambda + "</LAMBDA></ANNEX>";
}

} // namespace

TEST_F(ControlTest, Din1988HasARecordAndAllOtherCodesShareOne)
{
    // Each setter through each code, seen through all of them.
    for (const ControlValue& changed : controlValues)
        for (int mode = -1; mode <= 9; ++mode) {
            setRecord(Mode::EC, {});
            setRecord(Mode::DIN_1988, {});
            changed.set(Mode{mode}, 1.0);
            for (const ControlValue& asked : controlValues)
                for (int other = -1; other <= 9; ++other)
                    EXPECT_EQ(asked.get(Mode{other}),
                              &asked == &changed && (mode == 2) == (other == 2) ? 1.0 : 0.0)
                        << asked.name << " of " << other << " after " << changed.name << " of "
                        << mode;
        }
}

TEST_F(ControlTest, AnAnnexOfAnyCodeButDin1988GoesToTheSharedRecord)
{
    for (const char* code : {"EC", "DIN-2008", "SIA", "OENORM", "CSN", "BS", "DIN-EN", "-", "",
                             "ec", "din-1988", "DIN-1988 "}) {
        reset();
        readControl("<STRESSBLOCK>" + annex(code, "0.7", "0.8", "0.9") + "</STRESSBLOCK>");
        EXPECT_EQ(records(), "1.1 1.2 0.7 0.8 0.9 0; 2.1 2.2 0.4 0.5 0.6 1") << code;
    }
    reset();
    readControl("<STRESSBLOCK>" + annex("DIN-1988", "0.7", "0.8", "0.9") + "</STRESSBLOCK>");
    EXPECT_EQ(records(), "1.1 1.2 0.1 0.2 0.3 0; 2.1 2.2 0.7 0.8 0.9 1");
}

TEST_F(ControlTest, Reading)
{
    const auto expect = [](const char* fact, const std::string& document, const char* expected) {
        reset();
        readControl(document);
        EXPECT_EQ(records(), expected) << fact;
    };
    expect("a value must exceed 1e-7",
           R"(<STRESSBLOCK><A NAME="EC"><STRUTFACTOR>0.0000001</STRUTFACTOR><ETA>-0.1</ETA></A>
              <A NAME="DIN-1988"><ETA>0.00000011</ETA><LAMBDA>x</LAMBDA></A></STRESSBLOCK>)",
           "1.1 1.2 0.1 0.2 0.3 0; 2.1 2.2 0.4 1.1e-07 0.6 1");
    expect("a later annex replaces what it gives, whatever its code",
           R"(<STRESSBLOCK><A NAME="EC"><STRUTFACTOR>0.7</STRUTFACTOR><ETA>0.7</ETA></A>
              <A NAME="BS"><ETA>0.8</ETA></A><A><LAMBDA>0.9</LAMBDA></A></STRESSBLOCK>)",
           "1.1 1.2 0.7 0.8 0.9 0; 2.1 2.2 0.4 0.5 0.6 1");
    expect("gamma, gamma factor and internal factor stand in no file",
           R"(<STRESSBLOCK><A NAME="DIN-1988"><GAMMA>9</GAMMA><GAMMA_FACTOR>9</GAMMA_FACTOR>
              <GAMMAFACTOR>9</GAMMAFACTOR><INTERNALFACTOR>0</INTERNALFACTOR></A></STRESSBLOCK>)",
           before);
    expect("the block may stand deeper, the first one counts; values are children of their annex",
           R"(<PROFILE><CODES><STRESSBLOCK><A NAME="EC"><ETA>0.7</ETA><ETA>0.8</ETA>
                <NOTE><LAMBDA>0.7</LAMBDA></NOTE></A></STRESSBLOCK></CODES>
              <STRESSBLOCK><A NAME="EC"><LAMBDA>0.8</LAMBDA></A></STRESSBLOCK></PROFILE>)",
           "1.1 1.2 0.1 0.7 0.3 0; 2.1 2.2 0.4 0.5 0.6 1");
    expect("without block nothing changes", R"(<S><ANNEX NAME="EC"><ETA>7</ETA></ANNEX></S>)",
           before);
    expect("nor by what is not well formed", R"(<STRESSBLOCK><A NAME="EC"><ETA>7</ETA></A>)",
           before);
}

TEST_F(ControlTest, ReadsAndReplacesFiles)
{
    const TemporaryDirectory directory;
    Control::input(directory.file("missing.xml"));
    Control::input(directory.path().string());
    // Never deciphered.
    Control::input(directory.write("control.enc", enciphered(controlSettings)));
    EXPECT_EQ(records(), before);

    const std::string path = directory.write("control.xml", "<SMOD><OWN>lost</OWN></SMOD>");
    Control::setCompressionEta(Mode::CSN, 0.1 + 0.2);
    Control::setStrutFactor(Mode::DIN_1988, 0.0);
    Control::output(path);
    EXPECT_EQ(readFile(path).find("OWN"), std::string::npos);
    EXPECT_NE(readFile(path).find("<STRUTFACTOR>0</STRUTFACTOR>"), std::string::npos);
    Control::setCompressionEta(Mode::EC, 7);
    Control::input(path);
    EXPECT_EQ(records(), "1.1 1.2 0.1 0.30000000000000004 0.3 0; 2.1 2.2 0 0.5 0.6 1");
}
