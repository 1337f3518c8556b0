#include <zelstandard/instructions/StateInstructionReader.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstring>
#include <map>
#include <new>
#include <string>
#include <vector>

#include <zelstandard/attributes/detail/Tokens.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/instructions/StateInstructionManager.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

namespace
{

struct Entry {
    StateAttributeToken token;
    Operator value;
};

/// Of a token only the first mention is kept: it decides.
using Block = std::vector<Entry>;
using Blocks = std::map<std::string, Block, std::less<>>;

Entry entryOf(const ZelXmlData* element)
{
    XMLUtil& words = *XMLUtil::get();
    return {words.getStateAttrTokenToString(nameOf(element)),
            words.getOperatorToString(ZelXmlData::getAttributeString(element, Label::Operator))};
}

bool isBlocks(const ZelXmlData* element)
{
    return std::strcmp(ZelXmlData::getName(element), Label::DefaultBlocks) == 0;
}

void define(Blocks& blocks, const ZelXmlData* container)
{
    for (const ZelXmlData* definition : ChildElements(container)) {
        Block& block = blocks[nameOf(definition)];
        for (const ZelXmlData* element : ChildElements(definition)) {
            const Entry entry = entryOf(element);
            if (std::ranges::find(block, entry.token, &Entry::token) == block.end())
                block.push_back(entry);
        }
    }
}

/// Attributes of one instruction in one piece of memory: there are thousands in a document. The
/// instruction deletes them one by one, and the last one gives the memory back.
class Batch
{
public:
    struct Attribute final : StateAttributeBase {
        Attribute(const Entry& entry, Batch* memory)
            : StateAttributeBase(entry.token, entry.value), batch(memory)
        {
        }
        static void* operator new(std::size_t, void* place) { return place; }
        static void operator delete(Attribute* self, std::destroying_delete_t)
        {
            Batch* const batch = self->batch;
            self->~Attribute();
            if (--batch->alive_ == 0)
                ::operator delete(batch);
        }
        Batch* batch;
    };

    /// An attribute for each entry, one behind the other.
    static Attribute* of(const Block& entries)
    {
        void* const memory = ::operator new(sizeof(Batch) + entries.size() * sizeof(Attribute));
        auto* const batch = new (memory) Batch(entries.size());
        auto* const first = reinterpret_cast<Attribute*>(batch + 1);
        for (std::size_t i = 0; i < entries.size(); ++i)
            new (first + i) Attribute(entries[i], batch);
        return first;
    }

private:
    explicit Batch(std::size_t count) : alive_(count) {}

    alignas(Attribute) std::size_t alive_;
};

/// What one element adds to its instruction: the tokens that it lacks, each at its first mention.
struct Additions {
    std::bitset<tokenCount> present;
    Block entries;

    explicit Additions(const StateInstruction& instruction)
    {
        entries.reserve(tokenCount);
        for (const StateAttributeBase* attribute : instruction.getAttributes()) {
            const auto token = attribute ? static_cast<std::size_t>(attribute->getToken()) : -1;
            if (token < tokenCount)
                present.set(token);
        }
    }

    void add(const Entry& entry)
    {
        const auto token = static_cast<std::size_t>(entry.token);
        if (!present.test(token))
            entries.push_back(entry);
        present.set(token);
    }
};

} // namespace

StateInstructionReader::StateInstructionReader(StateInstructionManager* manager) : manager_(manager)
{
}

StateInstructionReader::~StateInstructionReader() = default;

void StateInstructionReader::readXml(std::istream& stream)
{
    ZelXmlTree tree;
    tree.buildOfStream(stream);
    readXml(tree);
}

void StateInstructionReader::readXml(const ZelXmlTree& tree)
{
    XMLUtil& words = *XMLUtil::get();
    const auto known = firstOfEachToken(manager_->attributes_);
    Blocks blocks;
    const ZelXmlData* rules = ZelXmlData::findTree(tree.getRoot(), Label::StateInstructions, true);
    // A batch is freed by its last attribute.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    for (const ZelXmlData* child : ChildElements(rules)) {
        if (isBlocks(child)) {
            define(blocks, child);
            continue;
        }
        StateInstruction* instruction = manager_->giveStateInstruction(
            words.getInstructionToString(ZelXmlData::getAttributeString(child, Label::Type)),
            words.getSupTemplateToString(ZelXmlData::getAttributeString(child, Label::Template)));
        instruction->setDeletable(false);
        Additions additions(*instruction);
        const ZelXmlData* attributes = ZelXmlData::findTree(child, Label::StateAttributes, true);
        for (const ZelXmlData* element : ChildElements(attributes)) {
            if (!isBlocks(element)) {
                additions.add(entryOf(element));
                continue;
            }
            for (const ZelXmlData* reference : ChildElements(element)) {
                const auto block = blocks.find(ZelXmlData::getName(reference));
                if (block != blocks.end())
                    std::ranges::for_each(block->second,
                                          [&](const Entry& entry) { additions.add(entry); });
            }
        }
        if (additions.entries.empty())
            continue;

        // As StateInstructionManager::stateInstructionGiveAttribute, but for all in one go.
        instruction->attributes_.reserve(instruction->attributes_.size() +
                                         additions.entries.size());
        Batch::Attribute* attribute = Batch::of(additions.entries);
        for (const Entry& entry : additions.entries) {
            if (const StateAttribute* same = known[static_cast<std::size_t>(entry.token)]) {
                attribute->setType(same->getType());
                attribute->setLoadType(same->getLoadType());
            }
            instruction->addAttribute(attribute++);
        }
    }
}

} // namespace Standard
