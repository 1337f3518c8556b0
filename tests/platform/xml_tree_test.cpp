#include <gtest/gtest.h>

#include <algorithm>
#include <istream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include <zelstandard/platform/ZelXml.h>

// What the XML library takes for a document, finds in it and writes back.

namespace
{

using namespace std::string_literals;

bool build(ZelXmlTree& tree, const std::string& document)
{
    std::istringstream stream(document);
    return tree.buildOfStream(stream);
}

std::string written(const ZelXmlTree& tree, bool indented = false)
{
    std::ostringstream stream;
    tree.putToStream(stream, indented);
    return stream.str();
}

const std::string Declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

/// A document written again without its declaration; "none" when it gives no tree.
std::string rewritten(const std::string& document)
{
    ZelXmlTree tree;
    if (!build(tree, document))
        return tree.getRoot() ? "a root in spite of the answer" : "none";
    return written(tree).substr(Declaration.size());
}

/// In UTF-16, the high byte of each unit first.
std::string big(std::u16string_view text)
{
    std::string bytes;
    for (const char16_t unit : text)
        bytes += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
    return bytes;
}

/// In UTF-16, the low byte of each unit first.
std::string little(std::u16string_view text)
{
    std::string bytes = big(text);
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

/// An XML declaration with that encoding.
std::string in(const std::string& encoding)
{
    return "<?xml version='1.0' encoding='" + encoding + "'?>";
}

std::string nested(int depth)
{
    std::string begin;
    std::string end;
    for (; depth > 0; --depth) {
        begin += "<a>";
        end += "</a>";
    }
    return begin + "x" + end;
}

/// Gives its bytes a thousand at a time, telling nothing of how many there are, and then ends, or
/// fails as a disk does.
class PieceBuffer : public std::streambuf
{
public:
    PieceBuffer(std::string bytes, bool fails) : bytes_(std::move(bytes)), fails_(fails) {}

protected:
    int_type underflow() override
    {
        if (egptr() == bytes_.data() + bytes_.size()) {
            if (fails_)
                throw std::runtime_error("disk");
            return traits_type::eof();
        }
        char* const piece = egptr() ? egptr() : bytes_.data();
        setg(piece, piece, std::min(piece + 1000, bytes_.data() + bytes_.size()));
        return traits_type::to_int_type(*piece);
    }

private:
    std::string bytes_;
    bool fails_;
};

} // namespace

TEST(XmlTree, GivesNoTreeOfADamagedDocument)
{
    const std::string documents[] = {
        // the root, and what stands beside it
        "", "\n<!-- x -->", "x<a/>", "<a/>x", "<a/>\nx", "x\n<a/>", "<a/>\xA0", "<a/><![CDATA[x]]>",
        "<a/><b/>", "<a/><", little(u"\uFEFF<a/>x"), big(u"<a/><b/>"),
        // tags
        "<a>\0</a>"s, "<a>", "<a><b></a>", "<a><b></a></b>", "</a>", "<1a/>", "< a/>", "<a b/>",
        "<a b=1/>", "<a b=\"1\"c=\"2\"/>", "<a><!-- x</a>", "<a><![CDATA[x]]</a>",
        "<!DOCTYPE a [<!ENTITY b \"]>\"><a/>", "<a><!DOCTYPE a></a>"};
    for (const std::string& document : documents)
        EXPECT_EQ(rewritten(document), "none") << document;
}

TEST(XmlTree, ReadsAllElseAsItStands)
{
    for (const std::string& document :
         {"<a>\xEF\xBF\xBE</a>"s, "<a\xC3\x97/>"s, "<a>\xC0\x80\xE4\xED\xA0\x80</a>"s,
          "<a b=\"\xFF\">\xF4\x90\x80\x80</a>"s})
        EXPECT_EQ(rewritten(document), document);
    const std::pair<std::string, const char*> rows[] = {
        {"<a/>\0"s,                               "<a/>"               },
        {" <?xml encoding=\"EBCDIC\"?><a/>",      "<a/>"               },
        {"<a/><!DOCTYPE a>",                      "<a/>"               },
        {in("UTF-16") + "<a>\xC3\xA4</a>",        "<a>\xC3\xA4</a>"    },
        {"<a b=\"<&\">&amp &nbsp; & ]]>\x01</a>",
         "<a b=\"&lt;&amp;\">&amp;amp &amp;nbsp; &amp; ]]&gt;&#01;</a>"},
    };
    for (const auto& [document, expected] : rows)
        EXPECT_EQ(rewritten(document), expected) << document;
}

TEST(XmlTree, KeepsAllButTheDocumentType)
{
    EXPECT_EQ(rewritten("<?xml version='1.1' encoding='utf-8' standalone='no' ?>\n<a />\n"),
              "<a/>");
    const std::string unknown = "<!-- b --><?p q?><a><?r?><!-- c -->1<!-- d --></a><!-- e -->";
    EXPECT_EQ(rewritten(unknown), unknown);
    EXPECT_EQ(rewritten("<a b = '\"' c=\"'\"\n>&lt;&gt;&amp;&quot;&apos;&#228;&#x20AC;</a >"),
              "<a b=\"&quot;\" c=\"'\">&lt;&gt;&amp;\"'\xC3\xA4\xE2\x82\xAC</a>");
    EXPECT_EQ(rewritten("<a>1<![CDATA[<2>]]>3</a>"), "<a>1<![CDATA[<2>]]>3</a>");
    EXPECT_EQ(rewritten("<\xC3\xA4:b.c-d/>"), "<\xC3\xA4:b.c-d/>");
    EXPECT_EQ(rewritten("<!DOCTYPE a '>' \">\" [<!ENTITY b ']>'> <!-- ]> --> <?p ]> ?> %c;] ><a/>"),
              "<a/>");
    // The entities of a document type are not expanded, however many there would be.
    EXPECT_EQ(rewritten("<!DOCTYPE a [<!ENTITY b 'x'><!ENTITY c '&b;&b;'>]><a d='&c;'>&c;</a>"),
              "<a d=\"&amp;c;\">&amp;c;</a>");
}

TEST(XmlTree, ReadsTheEncodingsThatItKnows)
{
    const std::string expected = "<a>\xC3\xA4</a>";
    EXPECT_EQ(rewritten("\xEF\xBB\xBF<a>\xC3\xA4</a>"), expected);
    EXPECT_EQ(rewritten(in("iso-8859-1") + "<a>\xE4</a>"), expected);
    for (const std::u16string start : {u"", u"\uFEFF", u"\uFEFF<?xml version='1.0'?>"}) {
        const std::u16string document = start + u"<a>\u00E4\U0001F600</a>";
        EXPECT_EQ(rewritten(little(document)), "<a>\xC3\xA4\xF0\x9F\x98\x80</a>");
        EXPECT_EQ(rewritten(big(document)), "<a>\xC3\xA4\xF0\x9F\x98\x80</a>");
    }
}

TEST(XmlTree, LimitsTheDepthOfElements)
{
    ZelXmlTree tree;
    EXPECT_TRUE(build(tree, nested(1000)));
    EXPECT_FALSE(build(tree, nested(1001)));
    EXPECT_FALSE(build(tree, nested(1000000)));
    EXPECT_EQ(tree.getRoot(), nullptr);
}

TEST(XmlTree, WritesAndRemovesElementsOfAnyDepth)
{
    ZelXmlTree tree;
    ZelXmlData* const root = tree.open("a", false);
    ZelXmlData* element = root;
    for (int i = 0; i < 1'000'000; ++i)
        element = ZelXmlData::addChild(element, "b");
    ZelXmlData* const last = ZelXmlData::addChild(root, "c");
    EXPECT_EQ(written(tree).size(), Declaration.size() + 7'000'000 - 3 + 11);
    ZelXmlData::removeChild(last, ZelXmlData::getFirstChild(root)); // no child of c
    ZelXmlData::removeChild(root, ZelXmlData::getFirstChild(root));
    EXPECT_EQ(written(tree), Declaration + "<a><c/></a>");
}

TEST(XmlTree, ReadsAStreamToItsEnd)
{
    ZelXmlTree tree;
    PieceBuffer whole("<a>" + std::string(300000, 'x') + "</a>", false);
    std::istream stream(&whole);
    ASSERT_TRUE(tree.buildOfStream(stream));
    EXPECT_EQ(ZelXmlData::getData(tree.getRoot()).size(), 300000U);

    PieceBuffer broken("<a/>" + std::string(300000, ' '), true);
    std::istream failing(&broken);
    EXPECT_FALSE(tree.buildOfStream(failing)) << "what came before the fault is not believed";
    EXPECT_EQ(tree.getRoot(), nullptr);

    std::ostream nowhere(nullptr);
    tree.putToStream(nowhere, true);
    EXPECT_EQ(written(tree, true), "") << "nor is there anything to write";
    std::istream none(nullptr);
    EXPECT_FALSE(tree.buildOfStream(none));
}

TEST(XmlTree, FindsElementsDepthFirst)
{
    // The deeper X comes first in the document; the name of the root counts for itself.
    ZelXmlTree tree;
    ASSERT_TRUE(build(tree, "<r>t<a><!-- --><X i='2'/></a><X i='3'/><b i='4' i='5'/></r>"));
    ZelXmlData* const root = tree.getRoot();
    const auto number = [](const ZelXmlData* element) {
        return ZelXmlData::getAttributeString(element, "i");
    };
    EXPECT_EQ(number(ZelXmlData::findTree(root, "X", true)), "2");
    EXPECT_EQ(number(ZelXmlData::findTree(root, "X", false)), "3");
    EXPECT_EQ(number(ZelXmlData::findChild(root, "X")), "3");
    EXPECT_EQ(ZelXmlData::findTree(root, "r", true), root);
    EXPECT_EQ(ZelXmlData::findTree(root, "r", false), nullptr);

    ZelXmlData* const a = ZelXmlData::getFirstChild(root);
    EXPECT_EQ(ZelXmlData::findTree(a, "b", true), nullptr) << "b is not below a";
    ZelXmlData* const b = ZelXmlData::getNextSibling(ZelXmlData::getNextSibling(a));
    EXPECT_EQ(number(b), "4") << "the first of two attributes of one name";
    EXPECT_TRUE(ZelXmlAttributeData::checkValue(ZelXmlData::findAttribute(b, "i"), "4"));
    EXPECT_FALSE(ZelXmlAttributeData::checkValue(ZelXmlData::findAttribute(b, "j"), ""));
    ZelXmlData::moveInFrontOf(root, b, a);
    ZelXmlData::moveInFrontOf(a, b, nullptr); // no child of a
    ZelXmlData::removeChild(root, a);
    EXPECT_EQ(written(tree).substr(Declaration.size()), "<r>t<b i=\"4\" i=\"5\"/><X i=\"3\"/></r>");
}

TEST(XmlTree, TakesAndReplacesTheWholeTextOfAnElement)
{
    ZelXmlTree tree;
    ASSERT_TRUE(build(tree, "<a>\r\n <!-- kN -->1 2<b>x</b><![CDATA[ 3]]> \t</a>"));
    EXPECT_EQ(ZelXmlData::getData(tree.getRoot()), "1 2 3");
    ZelXmlData::setData(tree.getRoot(), "<3>");
    EXPECT_EQ(written(tree).substr(Declaration.size()), "<a><!-- kN -->&lt;3&gt;<b>x</b></a>");
    ZelXmlData::setData(tree.getRoot(), "");
    EXPECT_EQ(written(tree).substr(Declaration.size()), "<a><!-- kN --><b>x</b></a>");
}

TEST(XmlTree, OpensWhatExistsAndCreatesWhatDoesNot)
{
    ZelXmlTree tree;
    ZelXmlData* const root = tree.open("SMOD", false);
    EXPECT_EQ(root, tree.getRoot());
    EXPECT_EQ(tree.open("SMOD", false), root) << "a root that is open and opened again";
    ZelXmlData* const types = tree.open("TYPES", false);
    EXPECT_EQ(ZelXmlData::findChild(root, "TYPES"), types);
    ZelXmlData* const inner = tree.open("TYPES", false);
    EXPECT_EQ(ZelXmlData::findChild(types, "TYPES"), inner);
    for (int i = 0; i < 9; ++i)
        tree.close();

    EXPECT_EQ(tree.open("TYPES", false), types) << "nothing is open, so it is a child of the root";
    tree.close();
    EXPECT_EQ(tree.open("SMOD", false), root) << "nothing is open, so it is the root";
    EXPECT_NE(tree.open("TYPES", true), types);
    EXPECT_EQ(tree.open("no name", false), nullptr);
    EXPECT_EQ(tree.open("lost", false), nullptr) << "inside an element that could not be opened";
    EXPECT_EQ(written(tree).substr(Declaration.size()),
              "<SMOD><TYPES><TYPES/></TYPES><TYPES/></SMOD>");

    ASSERT_TRUE(build(tree, "<b><b/></b>"));
    EXPECT_EQ(tree.open("b", false), tree.getRoot());
    EXPECT_NE(tree.open("b", false), tree.getRoot()) << "its child comes before the root itself";

    ASSERT_TRUE(build(tree, "<b/>"));
    tree.open("c", false);
    EXPECT_EQ(written(tree).substr(Declaration.size()), "<b><c/></b>")
        << "what was open in the former document is closed";
}

TEST(XmlTree, WritesOnlyWhatCanBeReadAgain)
{
    ZelXmlTree tree;
    ZelXmlData* const root = tree.open("a", false);
    ZelXmlData::setAttribute(root, "b", "1\t\n\"<&>\0\xC3"s);
    ZelXmlData::setAttribute(root, "no name", "x");
    EXPECT_EQ(ZelXmlData::addChild(root, "1"), nullptr);
    EXPECT_EQ(ZelXmlData::openChild(root, "", false), nullptr);
    ZelXmlData* const child = ZelXmlData::openChild(root, "c", false);
    EXPECT_EQ(ZelXmlData::openChild(root, "c", false), child);
    EXPECT_NE(ZelXmlData::openChild(root, "c", true), child);
    ZelXmlData::setData(child, "]]>\x1F<&\xED\xA0\x80\xEF\xBF\xBF\xC3\xA4"s);

    ZelXmlTree again;
    ASSERT_TRUE(build(again, written(tree, true)));
    EXPECT_EQ(ZelXmlData::getAttributeString(again.getRoot(), "b").substr(3),
              "\"<&>\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ZelXmlDataUtil::getChildString(again.getRoot(), "c"),
              "]]>\xEF\xBF\xBD<&\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xA4");
}

TEST(XmlTree, WritesTheSameBytesFromTheSecondWritingOn)
{
    ZelXmlTree first;
    ASSERT_TRUE(build(first, "<!--x--><r> mixed <b/>text<c>\n<d>1</d></c><!-- c --> <e> </e>"
                             "<f g='&#10;&#9;'>&#13;</f>\n<?p  q ?><![CDATA[ ]]></r>"));
    ZelXmlData::setData(ZelXmlData::openChild(first.getRoot(), "h", false), " \r ");
    ZelXmlTree second;
    ASSERT_TRUE(build(second, written(first, true)));
    ZelXmlTree third;
    ASSERT_TRUE(build(third, written(second, true)));
    EXPECT_EQ(written(second, true), written(third, true));

    ZelXmlTree plain;
    ASSERT_TRUE(build(plain, "<a><b c=\"d\">1</b></a>"));
    EXPECT_EQ(written(plain, true), Declaration + "\n<a>\n  <b c=\"d\">1</b>\n</a>\n");
}

TEST(XmlTree, TakesNullHandlesAndNames)
{
    ZelXmlTree tree;
    ZelXmlData* const root = tree.open("a", false);
    EXPECT_STREQ(ZelXmlData::getName(nullptr), "");
    EXPECT_EQ(ZelXmlData::getFirstChild(nullptr), nullptr);
    EXPECT_EQ(ZelXmlData::getNextSibling(nullptr), nullptr);
    EXPECT_EQ(ZelXmlData::findTree(nullptr, "a", true), nullptr);
    EXPECT_EQ(ZelXmlData::findTree(root, nullptr, true), nullptr);
    EXPECT_EQ(ZelXmlData::openChild(nullptr, "a", false), nullptr);
    EXPECT_EQ(ZelXmlData::getAttributeString(nullptr, "a"), "");
    EXPECT_EQ(ZelXmlData::getData(nullptr), "");
    EXPECT_EQ(tree.open(nullptr, false), nullptr);
    ZelXmlData::setAttribute(nullptr, "a", "b");
    ZelXmlData::setData(nullptr, "a");
    ZelXmlData::removeChild(nullptr, root);
    ZelXmlData::moveInFrontOf(nullptr, root, root);
}
