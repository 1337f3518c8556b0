#pragma once

#include <cstddef>
#include <string>

/// @file
/// What the operations of the library are held against: the least work that gives the same answer,
/// behind one call into a shared library as well. None of it uses the library.

#if defined(_WIN32)
#define FLOORS_API __declspec(dllexport)
#else
#define FLOORS_API __attribute__((visibility("default")))
#endif

namespace floors
{

/// A factor from a table indexed by code, structure, action and factor.
FLOORS_API double factor(int code, int structure, int action, int factor);

/// An object from an array indexed by its number.
FLOORS_API const void* object(int id);

/// Three hash look-ups and a copy of nine doubles.
FLOORS_API int factors(const char* action, const char* code, const char* structure, double* values);

/// One hash look-up; an array index and a string.
FLOORS_API int value(const std::string& word);
FLOORS_API std::string word(int value);

/// pugixml's parse of a document, into a tree that is thrown away.
FLOORS_API void parse(const std::string& document);

/// pugixml's writing of a tree.
class FLOORS_API Tree
{
public:
    explicit Tree(const std::string& document);
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree();
    [[nodiscard]] std::size_t save() const; ///< the length of the text

private:
    void* document_;
};

} // namespace floors
