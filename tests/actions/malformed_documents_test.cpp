#include "actions/Catalogue.h"

// Of a document that the XML library refuses nothing is read; of one with lesser faults,
// everything.

namespace
{

const std::string body = "<ACTIONTYPES><ACTIONTYPE NAME='SNOW'/></ACTIONTYPES>";
const std::string bodyRead = "SNOW, group NONE, MEDIUMTERM\n";

std::string read(const std::string& text)
{
    return support::contents(support::readCatalogue(text));
}

std::string inRoot(const std::string& text) { return "<SMOD>" + text + body + "</SMOD>"; }

std::string nested(int depth)
{
    std::string document = body;
    for (; depth > 0; --depth)
        document = "<a>" + document + "</a>";
    return document;
}

} // namespace

TEST(MalformedDocuments, GiveNothing)
{
    for (const std::string& document :
         {std::string(), "SNOW" + body, body + "x", body + body, body + "</ACTIONTYPES>",
          "<SMOD>" + body + "</SMOT>", "<SMOD a=1>" + body + "</SMOD>", inRoot({'\0'}),
          inRoot("") + "<!-- ", "<!DOCTYPE SMOD [" + body, nested(999)})
        EXPECT_EQ(read(document), "") << document;
}

TEST(MalformedDocuments, AreReadWhenOnlyAStrictReaderRefusesThem)
{
    for (const std::string& document :
         {inRoot("\x01"), inRoot("\xE4"), inRoot("\xC0\xBC"), inRoot("&"), inRoot("&x;"),
          "<SMOD a='<&'>" + body + "</SMOD>", " <?xml version='1.0' encoding='KOI8-R'?>" + body,
          nested(998)})
        EXPECT_EQ(read(document), bodyRead) << document;
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
