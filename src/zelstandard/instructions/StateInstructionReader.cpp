#include <zelstandard/instructions/StateInstructionReader.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <zelstandard/datafiles/XmlDocument.h>
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

using Block = std::vector<Entry>;

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

} // namespace

/// The default blocks read so far. No document can make the work grow beyond its own size: a block
/// keeps the first mention of a token only, and an instruction takes each entry of a block once,
/// however often it pulls the block in.
struct StateInstructionReader::Blocks {
    std::map<std::string, Block, std::less<>> blocks;
    std::map<std::pair<const StateInstruction*, const Block*>, std::size_t> taken;

    void define(const ZelXmlData* container)
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

    void pullIn(const ZelXmlData* container, StateInstruction* instruction,
                StateInstructionManager& manager)
    {
        for (const ZelXmlData* reference : ChildElements(container)) {
            const auto found = blocks.find(ZelXmlData::getName(reference));
            if (found == blocks.end())
                continue;
            const Block& block = found->second;
            for (std::size_t& next = taken[{instruction, &block}]; next < block.size(); ++next)
                manager.stateInstructionGiveAttribute(instruction, block[next].token,
                                                      block[next].value);
        }
    }
};

StateInstructionReader::StateInstructionReader(StateInstructionManager* manager)
    : manager_(manager), blocks_(std::make_unique<Blocks>())
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
    const ZelXmlData* rules = ZelXmlData::findTree(tree.getRoot(), Label::StateInstructions, true);
    for (const ZelXmlData* child : ChildElements(rules)) {
        if (isBlocks(child)) {
            blocks_->define(child);
            continue;
        }
        StateInstruction* instruction = manager_->giveStateInstruction(
            words.getInstructionToString(ZelXmlData::getAttributeString(child, Label::Type)),
            words.getSupTemplateToString(ZelXmlData::getAttributeString(child, Label::Template)));
        instruction->setDeletable(false);
        const ZelXmlData* attributes = ZelXmlData::findTree(child, Label::StateAttributes, true);
        for (const ZelXmlData* element : ChildElements(attributes)) {
            if (isBlocks(element)) {
                blocks_->pullIn(element, instruction, *manager_);
            } else {
                const Entry entry = entryOf(element);
                manager_->stateInstructionGiveAttribute(instruction, entry.token, entry.value);
            }
        }
    }
}

} // namespace Standard
