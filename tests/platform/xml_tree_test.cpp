#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "support/Documents.h"

// What the XML library takes for a document, finds in it and writes back.

namespace
{

using namespace std::string_literals;

using support::build;
using support::raw;

std::string indented(const ZelXmlTree& tree)
{
    std::ostringstream stream;
    tree.putToStream(stream, true);
    return stream.str();
}

std::string nested(int depth)
{
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<a>";
    for (int i = 0; i < depth; ++i)
        text += "</a>";
    return text;
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
    EXPECT_EQ(raw(tree).size(), 7'000'000U - 3 + 11);
    ZelXmlData::removeChild(last, ZelXmlData::getFirstChild(root)); // no child of c
    ZelXmlData::removeChild(root, ZelXmlData::getFirstChild(root));
    EXPECT_EQ(raw(tree), "<a><c/></a>");
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
    EXPECT_EQ(indented(tree), "") << "nor is there anything to write";
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
    EXPECT_EQ(raw(tree), "<r>t<b i=\"4\" i=\"5\"/><X i=\"3\"/></r>");
}

TEST(XmlTree, TakesAndReplacesTheWholeTextOfAnElement)
{
    ZelXmlTree tree;
    ASSERT_TRUE(build(tree, "<a>\r\n <!-- kN -->1 2<b>x</b><![CDATA[ 3]]> \t</a>"));
    EXPECT_EQ(ZelXmlData::getData(tree.getRoot()), "1 2 3");
    ZelXmlData::setData(tree.getRoot(), "<3>");
    EXPECT_EQ(raw(tree), "<a><!-- kN -->&lt;3&gt;<b>x</b></a>");
    ZelXmlData::setData(tree.getRoot(), "");
    EXPECT_EQ(raw(tree), "<a><!-- kN --><b>x</b></a>");
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
    EXPECT_EQ(raw(tree), "<SMOD><TYPES><TYPES/></TYPES><TYPES/></SMOD>");

    ASSERT_TRUE(build(tree, "<b><b/></b>"));
    EXPECT_EQ(tree.open("b", false), tree.getRoot());
    EXPECT_NE(tree.open("b", false), tree.getRoot()) << "its child comes before the root itself";

    ASSERT_TRUE(build(tree, "<b/>"));
    tree.open("c", false);
    EXPECT_EQ(raw(tree), "<b><c/></b>") << "what was open in the former document is closed";
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
    ASSERT_TRUE(build(again, indented(tree)));
    EXPECT_EQ(ZelXmlData::getAttributeString(again.getRoot(), "b"),
              "1\t\n\"<&>\xEF\xBF\xBD\xEF\xBF\xBD");
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
    ASSERT_TRUE(build(second, indented(first)));
    ZelXmlTree third;
    ASSERT_TRUE(build(third, indented(second)));
    EXPECT_EQ(indented(second), indented(third));

    ZelXmlTree plain;
    ASSERT_TRUE(build(plain, "<a><b c=\"d\">1</b></a>"));
    EXPECT_EQ(indented(plain), R"(<?xml version="1.0" encoding="UTF-8"?>)"
                               "\n<a>\n  <b c=\"d\">1</b>\n</a>\n");
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

TEST(XmlNumbers, AreWrittenSoThatTheyReadBackEqual)
{
    ZelXmlTree tree;
    ZelXmlData* const root = tree.open("a", false);
    ZelXmlData* const child = ZelXmlData::openChild(root, "b", false);
    double field = -7;
    for (const double value :
         {0.0, 0.1, 1.0 / 3.0, 1e21, 5e-324, -std::numeric_limits<double>::max()}) {
        ZelXmlData::setData(child, value);
        EXPECT_EQ(ZelXmlDataUtil::getChildDouble(root, "b"), value);
        ZelXmlDataUtil::readValToChild(child, field);
        ZelXmlDataUtil::readValToChild(nullptr, field);
        EXPECT_EQ(field, value);
    }
    ZelXmlData::setData(child, std::numeric_limits<int>::min());
    EXPECT_EQ(ZelXmlDataUtil::getChildInt(root, "b"), std::numeric_limits<int>::min());
    EXPECT_EQ(ZelXmlDataUtil::getChildInt(nullptr, "b"), 0);
    ZelXmlData::setData(child, std::nan(""));
    EXPECT_EQ(ZelXmlDataUtil::getChildDouble(root, "b"), 0.0);
    ZelXmlDataUtil::setChildData(root, "b", 0.85, nullptr);
    EXPECT_EQ(ZelXmlData::getData(child), "0.85");
    ZelXmlDataUtil::setChildData(root, "b", 1e300, "%.2f");
    EXPECT_EQ(ZelXmlDataUtil::getChildDouble(root, "b"), 1e300);
}
