#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include <zelstandard/Export.h>

/// @file
/// The suite's XML library: a document tree built from a stream and put to a stream.
///
/// A `ZelXmlData*` is the handle of one element of a tree. It is owned by its tree, valid as long
/// as the tree lives and the element is not removed, and never dereferenced by the caller. Every
/// operation accepts a null handle: it finds nothing, gives the empty text, and changes nothing.
/// Names and texts are UTF-8. What a document that was read holds is kept as it stands; what is
/// handed in here is made safe for writing. A name begins with an ASCII letter, "_", ":" or a
/// character beyond ASCII and goes on with these, digits, "-" and "."; an element or attribute of
/// another name is not created. In texts and attribute values, what XML cannot hold (most control
/// characters, bytes that are not UTF-8) is stored as U+FFFD.
/// When there is no memory an operation throws std::bad_alloc, and the tree keeps all that it held;
/// ZelXmlTree::buildOfStream leaves it empty.
/// Several threads may read a tree that none changes; trees do not disturb one another.

/// Operations on one attribute of an element.
class ZELSUITE_API ZelXmlAttributeData
{
public:
    /// True when the attribute exists and its value equals the text byte for byte.
    static bool checkValue(const ZelXmlAttributeData* attribute, const std::string& text);

    ZelXmlAttributeData() = delete;
};

/// Operations on one element.
class ZELSUITE_API ZelXmlData
{
public:
    /// The element's name; empty for a null element.
    static const char* getName(const ZelXmlData* element);

    /// The first child element, and the next sibling element, in document order; null at the end.
    /// Comments, text and processing instructions are passed over.
    static ZelXmlData* getFirstChild(const ZelXmlData* element);
    static ZelXmlData* getNextSibling(const ZelXmlData* element);

    /// The first element of that name, depth first in document order: with @p recursive at or
    /// below the given element, without it among its children only. Null when there is none.
    static ZelXmlData* findTree(const ZelXmlData* element, const char* name, bool recursive);

    /// The first child element of that name, or null.
    static ZelXmlData* findChild(const ZelXmlData* element, const char* name);

    /// Like findChild, but a missing child is created at the end. With @p always a new child is
    /// created even when one exists.
    static ZelXmlData* openChild(ZelXmlData* element, const char* name, bool always);

    /// Appends a new child element.
    static ZelXmlData* addChild(ZelXmlData* element, const char* name);

    /// Removes a child with all that it holds; its handle is then void. An element that is open in
    /// its tree must not be removed.
    static void removeChild(ZelXmlData* element, ZelXmlData* child);

    /// Moves a child in front of another one.
    static void moveInFrontOf(ZelXmlData* element, ZelXmlData* child, ZelXmlData* other);

    /// The first attribute of that name, or null.
    static const ZelXmlAttributeData* findAttribute(const ZelXmlData* element, const char* name);

    /// An attribute's value; empty when the attribute is missing.
    static std::string getAttributeString(const ZelXmlData* element, const char* name);

    /// Sets an attribute, created when missing.
    static void setAttribute(ZelXmlData* element, const char* name, const std::string& value);

    /// All character data of the element joined, without the white space around it. Comments do
    /// not cut it; the text of child elements is not part of it. White space alone between two
    /// tags or comments of a document that was read is layout and no character data.
    static std::string getData(const ZelXmlData* element);

    /// Replaces the element's character data; child elements and comments stay. A double is
    /// written as the shortest text that reads back equal, whatever the locale; infinities and NaN
    /// become words that read back as no number.
    static void setData(ZelXmlData* element, const std::string& text);
    static void setData(ZelXmlData* element, int value);
    static void setData(ZelXmlData* element, double value);

    ZelXmlData() = delete;
};

/// Child elements read and written as texts and numbers. A number is the whole text of the child,
/// with a "." for decimals in every locale; a leading "+" and an exponent are fine; infinities,
/// NaN, hexadecimal numbers, a decimal comma and what is beyond the range of the type are not
/// numbers and count as a missing child.
class ZELSUITE_API ZelXmlDataUtil
{
public:
    /// The text of a child; empty when the child is missing.
    static std::string getChildString(const ZelXmlData* element, const char* name);

    /// The number in a child; 0 when the child is missing or holds no number of that kind.
    static int getChildInt(const ZelXmlData* element, const char* name);
    static double getChildDouble(const ZelXmlData* element, const char* name);

    /// Reads the element's own text into the value; unchanged when it is no number.
    static void readValToChild(const ZelXmlData* element, double& value);

    /// Sets the child of that name, created when missing, to the number in a printf format of the
    /// form "%.2f", with up to 99 decimals. Any other format gives the text that setData gives.
    static void setChildData(ZelXmlData* element, const char* name, double value,
                             const char* format);

    ZelXmlDataUtil() = delete;
};

/// One document.
class ZELSUITE_API ZelXmlTree
{
public:
    ZelXmlTree();
    ZelXmlTree(const ZelXmlTree&) = delete;
    ZelXmlTree& operator=(const ZelXmlTree&) = delete;
    ~ZelXmlTree();

    /// Replaces the document by the one in the stream, read to its end. A stream in a bad state
    /// leaves an empty tree; so does a document whose tags do not match or are otherwise damaged,
    /// that has no root, text or a second element beside it, or that nests deeper than 1000
    /// elements: there is never half of a document. Anything else is read as it stands, also where
    /// XML forbids it: a bare "&", control characters, bytes that are no UTF-8. What follows a NUL
    /// byte behind the root is not seen.
    /// UTF-16 and UTF-32 are known by their first bytes, ISO-8859-1 by the declaration; all else
    /// counts as UTF-8. A document type declaration is skipped and no entities but the five of XML
    /// are expanded: references to others stay as they are written. Of two attributes of one name
    /// the first counts.
    /// The tree takes the memory of the text and, on 64 bits, about 64 bytes for each element, text
    /// and comment and 40 for each attribute.
    /// @return true when the tree has a root
    bool buildOfStream(std::istream& stream);

    /// The root element; null when the tree is empty.
    [[nodiscard]] ZelXmlData* getRoot() const;

    /// Opens an element, in which later ones are opened until close() is called: the root when the
    /// tree is empty; else a child of the innermost open element; else, when nothing is open, the
    /// root itself if it has that name, or the root's child. The root is also given when it is the
    /// innermost open element and has that name. A missing element is created at the end; with
    /// @p always one is created even when it exists.
    /// @return null for a name that XML does not allow; that too is closed by one close()
    ZelXmlData* open(const char* name, bool always);

    /// Closes the innermost open element; harmless when nothing is open.
    void close();

    /// Writes the document as UTF-8 with an XML declaration; nothing when the tree is empty or the
    /// stream is in a bad state. What was read and is not understood is kept, but for the document
    /// type declaration. A written document that is read and written again keeps its bytes from the
    /// second writing on (the first may hold line ends and blank texts as the caller set them). A
    /// stream that does not take all of it, a string stream without memory included, says so by its
    /// state.
    /// @param indented a line and an indentation for each element
    void putToStream(std::ostream& stream, bool indented) const;

private:
    struct Document;
    std::unique_ptr<Document> document_;
};
