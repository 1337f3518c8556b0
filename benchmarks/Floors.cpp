#include "Floors.h"

#include <cstring>
#include <iterator>
#include <sstream>
#include <string_view>
#include <unordered_map>

#include <pugixml.hpp>

#include <zelstandard/vocabulary/Enumerations.h>

namespace floors
{

namespace
{

constexpr int codes = 9;
constexpr int structures = 7;
constexpr int actions = 52;

double table[codes][structures][actions][9];
int objects[actions];

template <class Rows> std::unordered_map<std::string_view, int> hashed(const Rows& rows)
{
    std::unordered_map<std::string_view, int> result;
    for (const auto& row : rows)
        result[row.word] = static_cast<int>(row.value);
    return result;
}

const auto actionWords = hashed(Standard::actionTypeIdWords);
const auto codeWords = hashed(Standard::designCodes);
const auto structureWords = hashed(Standard::bridgeTypeWords);

int find(const std::unordered_map<std::string_view, int>& words, std::string_view word)
{
    const auto found = words.find(word);
    return found == words.end() ? 0 : found->second;
}

pugi::xml_document* document(void* handle) { return static_cast<pugi::xml_document*>(handle); }

} // namespace

double factor(int code, int structure, int action, int factor)
{
    return table[code][structure][action][factor];
}

const void* object(int id) { return objects + id; }

int factors(const char* action, const char* code, const char* structure, double* values)
{
    const int at = find(actionWords, action);
    const auto& set = table[find(codeWords, code)][find(structureWords, structure)][at];
    std::memcpy(values, set, sizeof set);
    return 1;
}

int value(const std::string& word) { return find(actionWords, word); }

std::string word(int value) { return Standard::actionTypeIdWords[value].word; }

void parse(const std::string& document)
{
    pugi::xml_document tree;
    tree.load_buffer(document.data(), document.size());
}

Tree::Tree(const std::string& text) : document_(new pugi::xml_document)
{
    document(document_)->load_buffer(text.data(), text.size());
}

Tree::~Tree() { delete document(document_); }

std::size_t Tree::save() const
{
    std::ostringstream stream;
    document(document_)->save(stream, "  ");
    return stream.str().size();
}

} // namespace floors
