#include "actions/Catalogue.h"

namespace
{

const std::string body = "<ACTIONTYPES><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES>";
const std::string bodyRead = "SNOW, group NONE, MEDIUMTERM\n";

std::string read(const std::string& text)
{
    return support::contents(support::readCatalogue(text));
}

std::string inRoot(const std::string& text) { return "<SMOD>" + text + body + "</SMOD>"; }

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

} // namespace

TEST(MalformedDocuments, GiveNothing)
{
    const std::string nul(1, '\0');
    const std::string documents[] = {
        // without a root, or with more than one
        "", " \n", "<?xml version='1.0'?>", "<!-- -->", "SNOW", body + "<SMOD/>", body + body,
        body + "x", "x" + body, body + nul, nul + body,
        // tags
        body + "</ACTIONTYPES>", "<SMOD>" + body + "</SMOT>", "<SMOD><A>" + body + "</SMOD></A>",
        "<SMOD a=1>" + body + "</SMOD>", "<SMOD a>" + body + "</SMOD>",
        "<SMOD a='<'>" + body + "</SMOD>", " <?xml version='1.0'?>" + body,
        // characters: NUL, a control one, no UTF-8, overlong, a surrogate
        inRoot(nul), inRoot("\x01"), inRoot("\xE4"), inRoot("\xC0\xBC"), inRoot("\xED\xA0\x80"),
        inRoot("&"), inRoot("&x;"), inRoot("&#0;"),
        // encodings: unknown, claimed, cut in a character
        "<?xml version='1.0' encoding='KOI8-R'?>" + body,
        "<?xml version='1.0' encoding='UTF-16'?>" + body, "\xFF\xFE" + utf16(body, true) + "<",
        // left open
        inRoot("") + "<!-- ", "<SMOD>" + body + "<![CDATA[</SMOD>", "<!DOCTYPE SMOD [" + body};
    for (const std::string& document : documents)
        EXPECT_EQ(read(document), "") << document;
}

TEST(MalformedDocuments, ADocumentCutAnywhereGivesNothing)
{
    const std::string document = R"(<?xml version="1.0" encoding="UTF-8"?>
<SMOD><!-- Schnee: "ä" --><ACTIONTYPES><ACTIONTYPE NAME="SNOW"><ACTIONGROUP>SNOW</ACTIONGROUP>
<ANNEXES><ANNEX NAME="EC"><CLASSIFICATION NAME='BUILDING'><GAMMA_SUP><![CDATA[1.]]>5</GAMMA_SUP>
</CLASSIFICATION></ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES></SMOD>)";
    ASSERT_EQ(read(document), "SNOW, group SNOW, MEDIUMTERM\nEC BUILDING 1.5 0 0 0 0 0 0 0 1\n");
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
    const std::string latin = "<?xml version='1.0' encoding='iso-8859-1'?>" + inRoot("\xE4");
    for (const std::string& document :
         {"\xEF\xBB\xBF" + body, "\xFF\xFE" + utf16(body, true), "\xFE\xFF" + utf16(body, false),
          latin, "\r\n<!-- -->\n<?x y?>" + body + "\r\n<!-- -->\n",
          "<!DOCTYPE SMOD SYSTEM 'a.dtd'>" + body,
          std::string("<ACTIONTYPES><ACTIONTYPE NAME='SNOW' NAME='T'/></ACTIONTYPES>")})
        EXPECT_EQ(read(document), bodyRead) << document;
}
