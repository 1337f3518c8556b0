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

std::string inUtf16(std::u16string_view text, bool bigEndian)
{
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

std::string big(std::u16string_view text) { return inUtf16(text, true); }
std::string little(std::u16string_view text) { return inUtf16(text, false); }

/// An XML declaration with that encoding.
std::string in(const std::string& encoding)
{
    return "<?xml version='1.0' encoding='" + encoding + "'?>";
}

std::string nested(int depth, bool closed = true)
{
    std::string document;
    for (int i = 0; i < depth; ++i)
        document += "<a>";
    for (int i = 0; closed && i < depth; ++i)
        document += "</a>";
    return document;
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
        if (given_ == bytes_.size() && fails_)
            throw std::runtime_error("disk");
        const std::size_t count = std::min<std::size_t>(1000, bytes_.size() - given_);
        char* const piece = bytes_.data() + given_;
        setg(piece, piece, piece + count);
        given_ += count;
        return count == 0 ? traits_type::eof() : traits_type::to_int_type(*piece);
    }

private:
    std::string bytes_;
    bool fails_;
    std::size_t given_ = 0;
};

} // namespace

TEST(XmlTree, GivesNoTreeOfAMalformedDocument)
{
    for (const std::string& document : {""s,
                                        "x<a/>"s,
                                        "<a/>x"s,
                                        "<a/><![CDATA[x]]>"s,
                                        "<a/><b/>"s,
                                        "<a>\0</a>"s,
                                        "<a/>\0"s,
                                        "<a>\x01</a>"s,
                                        "<a>\xEF\xBF\xBE</a>"s,
                                        "<a>"s,
                                        "<a><b></a>"s,
                                        "<a><b></a></b>"s,
                                        "</a>"s,
                                        "<1a/>"s,
                                        "<a\xC3\x97/>"s,
                                        "< a/>"s,
                                        "<a b/>"s,
                                        "<a b=1/>"s,
                                        "<a b=\"1\"c=\"2\"/>"s,
                                        "<a b=\"<\"/>"s,
                                        "<a b=\"&\"/>"s,
                                        "<a>this & that</a>"s,
                                        "<a>&amp</a>"s,
                                        "<a>&nbsp;</a>"s,
                                        "<a>&#0;</a>"s,
                                        "<a>&#xD800;</a>"s,
                                        "<a>&#x110000;</a>"s,
                                        "<a>]]></a>"s,
                                        "<a><!-- -- --></a>"s,
                                        "<a><!-- ---></a>"s,
                                        "<a><![CDATA[x]]</a>"s,
                                        " <?xml version=\"1.0\"?><a/>"s,
                                        "<?xml encoding=\"UTF-8\"?><a/>"s,
                                        "<?xml version=\"1.0\" standalone=\"1\"?><a/>"s,
                                        "<!DOCTYPE a [<!ENTITY b \"]>\"><a/>"s,
                                        "<a/><!DOCTYPE a>"s,
                                        "<!DOCTYPE a><!DOCTYPE a><a/>"s,
                                        "<a>\xC0\x80</a>"s,
                                        "<a>\xE0\x80\xAF</a>"s,
                                        "<a>\xF4\x90\x80\x80</a>"s,
                                        "<a>\xC3</a>"s,
                                        "\xEF\xBB\xBF\xEF\xBB\xBF<a/>"s,
                                        in("US-ASCII") + "<a>\xC3\xA4</a>",
                                        in("EBCDIC") + "<a/>",
                                        in("UTF-16") + "<a/>",
                                        "\xEF\xBB\xBF" + in("ISO-8859-1") + "<a/>",
                                        little(u"\uFEFF<a/>") + " ",
                                        little(u"\uFEFF<a>\xD83D</a>"),
                                        big(u"\uFEFF<a>\xDE00\xDE00</a>"),
                                        little(u"<?xml version='1.0' encoding='UTF-8'?><a/>"),
                                        big(u"<?xml version='1.0' encoding='UTF-16LE'?><a/>"),
                                        big(u"<?xml version='1.0'?><a/>")})
        EXPECT_EQ(rewritten(document), "none") << document;
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
    EXPECT_EQ(
        rewritten("<!DOCTYPE a PUBLIC 'x>' \"y\" [<!ENTITY b ']>'> <!-- ]> --> <?p ]> ?> %c; ]"
                  " ><a/>"),
        "<a/>");
    // The entities of a document type are not expanded, however many there would be.
    EXPECT_EQ(rewritten("<!DOCTYPE a [<!ENTITY b 'x'><!ENTITY c '&b;&b;'>]><a d='&c;'>&c;</a>"),
              "<a d=\"&amp;c;\">&amp;c;</a>");
}

TEST(XmlTree, ReadsTheEncodingsThatItKnows)
{
    const std::string expected = "<a>\xC3\xA4</a>";
    EXPECT_EQ(rewritten("\xEF\xBB\xBF<a>\xC3\xA4</a>"), expected);
    EXPECT_EQ(rewritten("<?xml version='1.0' encoding='iso-8859-1'?><a>\xE4</a>"), expected);
    EXPECT_EQ(rewritten("<?xml version='1.0' encoding='US-ASCII'?><a>&#228;</a>"), expected);
    for (const bool bigEndian : {false, true}) {
        const std::u16string end = bigEndian ? u"BE" : u"LE";
        EXPECT_EQ(rewritten(inUtf16(u"\uFEFF<a>\u00E4</a>", bigEndian)), expected);
        EXPECT_EQ(
            rewritten(inUtf16(u"<?xml version='1.0' encoding='UTF-16" + end + u"'?><a>\u00E4</a>",
                              bigEndian)),
            expected);
        EXPECT_EQ(rewritten(inUtf16(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><a>\U0001F600"
                                    u"</a>",
                                    bigEndian)),
                  "<a>\xF0\x9F\x98\x80</a>");
    }
}

TEST(XmlTree, LimitsTheDepthOfElements)
{
    ZelXmlTree tree;
    EXPECT_TRUE(build(tree, nested(1000)));
    EXPECT_FALSE(build(tree, nested(1001)));
    EXPECT_FALSE(build(tree, nested(1000000, false)));
    EXPECT_EQ(tree.getRoot(), nullptr);
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
    ZelXmlData::moveToFront(root, b);
    ZelXmlData::moveToFront(a, b); // no child of a
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
    ZelXmlData::moveToFront(nullptr, root);
}
