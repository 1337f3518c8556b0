#include "actions/Catalogue.h"

#include <zelstandard/actions/ActionTypeReader.h>

using support::contents;

namespace
{

const std::string snow = "SNOW, group SNOW, MEDIUMTERM\n"
                         "EC BUILDING 1.5 0 0 0 0 0 0 0 1\n";

const std::string document = R"(<?xml version="1.0" encoding="UTF-8"?>
<SMOD><!-- Schnee: "ä" --><ACTIONTYPES><ACTIONTYPE NAME="SNOW"><ACTIONGROUP>SNOW</ACTIONGROUP>
<ANNEXES><ANNEX NAME="EC"><CLASSIFICATION NAME='BUILDING'><GAMMA_SUP><![CDATA[1.]]>5</GAMMA_SUP>
</CLASSIFICATION></ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES></SMOD>)";

const std::string body = "<ACTIONTYPES><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES>";
const std::string bodyRead = "SNOW, group NONE, MEDIUMTERM\n";

std::string read(const std::string& text)
{
    Standard::ActionTypeManager catalogue = support::emptyCatalogue();
    std::istringstream stream(text);
    Standard::ActionTypeReader(&catalogue).readXml(stream);
    return contents(catalogue);
}

std::string repeated(const std::string& text, int count)
{
    std::string result;
    while (count-- > 0)
        result += text;
    return result;
}

std::string utf16(const std::string& ascii, bool littleEndian)
{
    std::string result;
    for (const char c : ascii)
        result += littleEndian ? std::string{c, '\0'} : std::string{'\0', c};
    return result;
}

struct Case {
    const char* what;
    std::string text;
};

} // namespace

TEST(MalformedDocuments, GiveNothing)
{
    const std::string nul(1, '\0');
    const Case cases[] = {
        {"empty",                          ""                                              },
        {"white space",                    " \n"                                           },
        {"a declaration only",             R"(<?xml version="1.0"?>)"                      },
        {"a comment only",                 "<!-- -->"                                      },
        {"no document",                    "SNOW"                                          },
        {"two roots",                      body + "<SMOD/>"                                },
        {"the same root twice",            body + body                                     },
        {"text behind the root",           body + "x"                                      },
        {"text before the root",           "x" + body                                      },
        {"an end tag too many",            body + "</ACTIONTYPES>"                         },
        {"another end tag",                "<SMOD>" + body + "</SMOT>"                     },
        {"crossed tags",                   "<SMOD><A>" + body + "</SMOD></A>"              },
        {"NUL behind the root",            body + nul                                      },
        {"NUL before the root",            nul + body                                      },
        {"NUL in a text",                  "<SMOD>" + nul + body + "</SMOD>"               },
        {"a control character",            "<SMOD>\x01" + body + "</SMOD>"                 },
        {"no UTF-8",                       "<SMOD>\xE4" + body + "</SMOD>"                 },
        {"overlong UTF-8",                 "<SMOD>\xC0\xBC" + body + "</SMOD>"             },
        {"a surrogate in UTF-8",           "<SMOD>\xED\xA0\x80" + body + "</SMOD>"         },
        {"an unknown encoding",            "<?xml version='1.0' encoding='KOI8-R'?>" + body},
        {"UTF-8 that claims to be UTF-16", "<?xml version='1.0' encoding='UTF-16'?>" + body},
        {"half a character of UTF-16",     "\xFF\xFE" + utf16(body,                          true) + "<"},
        {"the declaration not in front",                                " <?xml version='1.0'?>" + body                                                  },
        {"an attribute without quotes",                                "<SMOD a=1>" + body + "</SMOD>" },
        {"an attribute without a value",                                "<SMOD a>" + body + "</SMOD>"                                                 },
        {"'<' in an attribute",                                "<SMOD a='<'>" + body + "</SMOD>"          },
        {"a bare ampersand",                                "<SMOD>&" + body + "</SMOD>"                                                    },
        {"an undeclared entity",                                "<SMOD>&x;" + body + "</SMOD>"      },
        {"a reference to no character",                                "<SMOD>&#0;" + body + "</SMOD>"                                             },
        {"an open comment",                                "<SMOD>" + body + "</SMOD><!-- "                  },
        {"open character data",                                "<SMOD>" + body + "<![CDATA[</SMOD>"                                         },
        {"an open document type",                                "<!DOCTYPE SMOD [" + body                },
    };
    for (const Case& c : cases)
        EXPECT_EQ(read(c.text), "") << c.what;
}

TEST(MalformedDocuments, ADocumentCutAnywhereGivesNothing)
{
    ASSERT_EQ(read(document), snow);
    for (std::size_t length = 0; length < document.size(); ++length)
        ASSERT_EQ(read(document.substr(0, length)), "") << "cut at " << length;
}

TEST(MalformedDocuments, NoDepthOfNestingBringsTheReaderDown)
{
    const auto nested = [](int depth) {
        return repeated("<a>", depth) + body + repeated("</a>", depth);
    };
    EXPECT_EQ(read(nested(998)), bodyRead) << "1000 levels with the two of the body";
    EXPECT_EQ(read(nested(999)), "");
    EXPECT_EQ(read(nested(1'000'000)), "");
    EXPECT_EQ(read(repeated("<a>", 1'000'000)), "");
    EXPECT_EQ(read("<SMOD>" + body + repeated("<a>", 1'000'000)), "");
    EXPECT_EQ(read("<!DOCTYPE a [" + repeated("<!ENTITY a '[", 1'000'000)), "");
}

TEST(MalformedDocuments, EntitiesOfADocumentTypeAreNotExpanded)
{
    // Each entity is ten of the one before; expanded, the last would have a thousand million words.
    std::string entities = "<!ENTITY e0 'SNOW'>";
    for (int i = 1; i <= 9; ++i)
        entities += "<!ENTITY e" + std::to_string(i) + " '" +
                    repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
    EXPECT_EQ(
        read("<!DOCTYPE SMOD [" + entities +
             "<!ENTITY f SYSTEM 'file:///etc/passwd'> <!-- ]> --> <?x ]> ?>]>"
             "<SMOD>&e9;<ACTIONTYPES>&f;"
             "<ACTIONTYPE NAME='&e0;'><ACTIONGROUP>&e0;</ACTIONGROUP></ACTIONTYPE>"
             "<ACTIONTYPE NAME='S&#78;&#x4F;W'><ACTIONGROUP>&#83;NOW</ACTIONGROUP></ACTIONTYPE>"
             "</ACTIONTYPES></SMOD>"),
        "NONE, group NONE, MEDIUMTERM\n"
        "SNOW, group SNOW, MEDIUMTERM\n");
}

TEST(MalformedDocuments, OtherWellFormedDocumentsAreRead)
{
    const Case cases[] = {
        {"UTF-8 with a byte order mark",                                              "\xEF\xBB\xBF" + body},
        {"UTF-16, least significant byte first",                                      "\xFF\xFE" + utf16(body,true)},
        {"UTF-16, most significant byte first",                                                                           "\xFE\xFF" + utf16(body,false)},
        {"ISO-8859-1",                                                                     "<?xml version='1.0' encoding='iso-8859-1'?><SMOD>\xE4" + body + "</SMOD>"                              },
        {"white space and comments around","\n<!-- -->\n<?x y?>" + body + "\n<!-- -->\n"},
        {"a document type",                                                                                                  "<!DOCTYPE SMOD SYSTEM 'a.dtd'>" + body                                                                                                                                                                                                   },
        {"lines of Windows","\r\n" + body + "\r\n"},
        {"the name twice, the first counts",
         "<ACTIONTYPES><ACTIONTYPE NAME='SNOW' NAME='T'/></ACTIONTYPES>"                                                                                                                                                                                                                                                                                                                                                                                   },
    };
    for (const Case& c : cases)
        EXPECT_EQ(read(c.text), bodyRead) << c.what;
}
