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
        setRecord(Mode::EC, 1.1, 1.2, 0.1, 0.2, 0.3, false);
        setRecord(Mode::DIN_1988, 2.1, 2.2, 0.4, 0.5, 0.6, true);
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
            setRecord(Mode::EC, 0, 0, 0, 0, 0, false);
            setRecord(Mode::DIN_1988, 0, 0, 0, 0, 0, false);
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
    struct Case {
        const char* fact;
        const char* document;
        const char* expected;
    };
    constexpr Case cases[] = {
        {"a value must exceed 1e-7",
         R"(<STRESSBLOCK><A NAME="EC"><STRUTFACTOR>0.0000001</STRUTFACTOR><ETA>-0.1</ETA>
              <LAMBDA>0</LAMBDA></A>
            <A NAME="DIN-1988"><STRUTFACTOR>0.0000002</STRUTFACTOR><ETA>0.00000011</ETA>
              <LAMBDA>1e-7</LAMBDA></A></STRESSBLOCK>)",                                                "1.1 1.2 0.1 0.2 0.3 0; 2.1 2.2 2e-07 1.1e-07 0.6 1"},
        {"what is no number is passed over",
         R"(<STRESSBLOCK><A NAME="EC"><STRUTFACTOR/><ETA>0,9</ETA><LAMBDA>x</LAMBDA></A>
            </STRESSBLOCK>)",                                                 before                                              },
        {"a later annex replaces what it gives, whatever its code",
         R"(<STRESSBLOCK><A NAME="EC"><STRUTFACTOR>0.7</STRUTFACTOR><ETA>0.7</ETA></A>
            <A NAME="BS"><ETA>0.8</ETA></A><A><LAMBDA>0.9</LAMBDA></A></STRESSBLOCK>)",                                                   "1.1 1.2 0.7 0.8 0.9 0; 2.1 2.2 0.4 0.5 0.6 1"      },
        {"gamma, gamma factor and internal factor stand in no file",
         R"(<STRESSBLOCK><A NAME="DIN-1988"><GAMMA>9</GAMMA><GAMMA_FACTOR>9</GAMMA_FACTOR>
              <GAMMAFACTOR>9</GAMMAFACTOR><INTERNALFACTOR>0</INTERNALFACTOR></A></STRESSBLOCK>)",                                               before                                              },
        {"values are children of their annex, and the first of a name counts",
         R"(<STRESSBLOCK><A NAME="EC"><NOTE><ETA>0.7</ETA></NOTE>
              <LAMBDA>0.8</LAMBDA><LAMBDA>0.9</LAMBDA></A></STRESSBLOCK>)",                                                                        "1.1 1.2 0.1 0.2 0.8 0; 2.1 2.2 0.4 0.5 0.6 1"      },
        {"the block may stand deeper, and the first one counts",
         R"(<PROFILE><CODES><STRESSBLOCK><A NAME="EC"><ETA>0.7</ETA></A></STRESSBLOCK></CODES>
            <STRESSBLOCK><A NAME="EC"><ETA>0.8</ETA><LAMBDA>0.8</LAMBDA></A></STRESSBLOCK>
            </PROFILE>)",                                           "1.1 1.2 0.1 0.7 0.3 0; 2.1 2.2 0.4 0.5 0.6 1"      },
        {"without block nothing changes",                                      R"(<SMOD><ANNEX NAME="EC"><ETA>0.7</ETA></ANNEX></SMOD>)",
         before                                                                                                                                                                               },
        {"a document that is not well formed changes nothing",
         R"(<STRESSBLOCK><A NAME="EC"><ETA>0.7</ETA></A>)",                                                                               before                                              },
    };
    for (const Case& c : cases) {
        reset();
        readControl(c.document);
        EXPECT_EQ(records(), c.expected) << c.fact;
    }
}

TEST_F(ControlTest, WritesTwoAnnexesWithThreeValuesInFull)
{
    ZelXmlTree tree;
    Control::setCompressionEta(Mode::CSN, 0.1 + 0.2);
    Control::setStrutFactor(Mode::DIN_1988, 0.0);
    Control::output(tree);
    EXPECT_EQ(raw(tree), "<SMOD><STRESSBLOCK>" + annex("EC", "0.1", "0.30000000000000004", "0.3") +
                             annex("DIN-1988", "0", "0.5", "0.6") + "</STRESSBLOCK></SMOD>");
}

TEST_F(ControlTest, WritingIntoAnExistingTreeIsReadAgainAlike)
{
    struct Existing {
        const char* fact;
        const char* document;
        std::string expected;
    };
    const std::string ec = annex("EC", "0.1", "0.2", "0.3");
    const std::string din = annex("DIN-1988", "0.4", "0.5", "0.6");
    const Existing cases[] = {
        {"an empty block",                                                            "<SMOD><STRESSBLOCK/></SMOD>",
         "<SMOD><STRESSBLOCK>" + ec + din + "</STRESSBLOCK></SMOD>"                                                                                                                                                                    },
        {"a document of another kind",                                                "<SMOD><SETTINGS><A>1</A></SETTINGS><!-- one --></SMOD>",
         "<SMOD><SETTINGS><A>1</A></SETTINGS><!-- one --><STRESSBLOCK>" + ec + din +
             "</STRESSBLOCK></SMOD>"                                                                                                                                                                                                   },
        {"values in another order, with comments, attributes and elements of others",
         R"(<SMOD><STRESSBLOCK A="x"><!-- one --><ANNEX B="y" NAME="DIN-1988"><LAMBDA C="z">9</LAMBDA>)"
         R"(<!-- two --><NOTE>own</NOTE></ANNEX><NOTE>own</NOTE></STRESSBLOCK><OWN/></SMOD>)",                                                  R"(<SMOD><STRESSBLOCK A="x"><!-- one --><ANNEX B="y" NAME="DIN-1988"><LAMBDA C="z">0.6</LAMBDA>)"
         R"(<!-- two --><NOTE>own</NOTE><STRUTFACTOR>0.4</STRUTFACTOR><ETA>0.5</ETA></ANNEX>)"
         R"(<NOTE>own</NOTE>)" +
             ec + "</STRESSBLOCK><OWN/></SMOD>"                                                                                          },
        {"annexes of other codes, which the shared record would take over",
         R"(<SMOD><STRESSBLOCK><ANNEX NAME="BS"><ETA>9</ETA></ANNEX><ANNEX><ETA>9</ETA></ANNEX>)"
         R"(<ANNEX NAME="EC"><ETA>9</ETA></ANNEX><ANNEX NAME="ISO"/><ANNEX NAME="EC"/>)"
         R"(<CODE NAME="SIA"><LAMBDA>9</LAMBDA></CODE></STRESSBLOCK></SMOD>)",                                                                  "<SMOD><STRESSBLOCK><ANNEX NAME=\"EC\"><ETA>0.2</ETA><STRUTFACTOR>0.1</STRUTFACTOR>"
         "<LAMBDA>0.3</LAMBDA></ANNEX>" +
             din + "</STRESSBLOCK></SMOD>"                                                                                                               },
        {"a value twice",
         R"(<SMOD><STRESSBLOCK><ANNEX NAME="EC"><STRUTFACTOR>8</STRUTFACTOR><ETA>8</ETA>)"
         R"(<LAMBDA>8</LAMBDA><ETA>9</ETA></ANNEX></STRESSBLOCK></SMOD>)",                                                                      "<SMOD><STRESSBLOCK><ANNEX NAME=\"EC\"><STRUTFACTOR>0.1</STRUTFACTOR><ETA>0.2</ETA>"
         "<LAMBDA>0.3</LAMBDA><ETA>9</ETA></ANNEX>" +
             din + "</STRESSBLOCK></SMOD>"                                                                                                                   },
        {"a block that stands deeper, in front of the usual place",
         "<SMOD><CODES><STRESSBLOCK/></CODES><STRESSBLOCK/></SMOD>",                                                                            "<SMOD><CODES><STRESSBLOCK>" + ec + din + "</STRESSBLOCK></CODES><STRESSBLOCK/></SMOD>"},
        {"another root",                                                              "<PROFILE><OWN/></PROFILE>",
         "<PROFILE><OWN/><SMOD><STRESSBLOCK>" + ec + din + "</STRESSBLOCK></SMOD></PROFILE>"                                                                                                                                           },
    };
    for (const Existing& c : cases) {
        SCOPED_TRACE(c.fact);
        reset();
        ZelXmlTree tree;
        ASSERT_TRUE(build(tree, c.document));
        Control::output(tree);
        EXPECT_EQ(raw(tree), c.expected);
        Control::output(tree);
        EXPECT_EQ(raw(tree), c.expected) << "writing again changes nothing";

        setRecord(Mode::EC, 1.1, 1.2, 7, 7, 7, false);
        setRecord(Mode::DIN_1988, 2.1, 2.2, 7, 7, 7, true);
        Control::input(tree);
        EXPECT_EQ(records(), before);
    }
}

TEST_F(ControlTest, ReadsAndReplacesFiles)
{
    const TemporaryDirectory directory;
    Control::input(directory.file("missing.xml"));
    Control::input(directory.path().string());
    // Never deciphered.
    Control::input(directory.write("control.age", enciphered(controlSettings)));
    EXPECT_EQ(records(), before);

    const std::string path = directory.write("control.xml", "<SMOD><OWN>lost</OWN></SMOD>");
    Control::output(path);
    EXPECT_EQ(readFile(path).find("OWN"), std::string::npos);
    setRecord(Mode::EC, 1.1, 1.2, 7, 7, 7, false);
    setRecord(Mode::DIN_1988, 2.1, 2.2, 7, 7, 7, true);
    Control::input(path);
    EXPECT_EQ(records(), before);
}

TEST_F(ControlTest, AssignmentGivesTheObject)
{
    Control control;
    const Control other(control);
    EXPECT_EQ(&(control = other), &control);
    EXPECT_EQ(&(control = Control()), &control);
    EXPECT_EQ(records(), before);
}
