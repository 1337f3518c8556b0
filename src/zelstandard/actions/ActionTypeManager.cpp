#include <zelstandard/actions/ActionTypeManager.h>

#include <algorithm>
#include <memory>

#include <zelstandard/actions/ActionTypeReader.h>
#include <zelstandard/actions/ActionTypeWriter.h>
#include <zelstandard/actions/detail/Identities.h>
#include <zelstandard/datafiles/detail/DataFile.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>

namespace Standard
{

ActionTypeManager::ActionTypeManager(const std::string& fileName) { init(fileName); }

ActionTypeManager::ActionTypeManager(const ZelXmlTree& tree) { init(tree); }

ActionTypeManager::ActionTypeManager(const ActionTypeManager& other) = default;
ActionTypeManager& ActionTypeManager::operator=(const ActionTypeManager& other) = default;

ActionTypeManager::~ActionTypeManager()
{
    for (ActionType* type : types_)
        delete type;
}

void ActionTypeManager::init(const std::string& fileName)
{
    const auto stream = openDataFile(fileName);
    if (!stream)
        return;
    ZelXmlTree tree;
    if (stream->good())
        tree.buildOfStream(*stream);
    init(tree);
}

void ActionTypeManager::init(const ZelXmlTree& tree)
{
    ActionTypeManager read; // aside, so that the contents stay when memory ends
    ActionTypeReader(&read).readXml(tree);
    types_.swap(read.types_);
    makeIndex();
}

void ActionTypeManager::addType(ActionType* type)
{
    types_.push_back(type);
    isIndexed_ = false;
}

void ActionTypeManager::makeIndex() const
{
    index_.fill(nullptr);
    for (ActionType* type : types_) {
        const auto place = static_cast<std::size_t>(type ? type->getId() : ActionType::Id{-1});
        if (place < index_.size() && !index_[place])
            index_[place] = type;
    }
    isIndexed_ = true;
    indexedChanges_ = identityChanges;
}

ActionType* ActionTypeManager::findActionType(ActionType::Id id) const
{
    if (!isIndexed_ || indexedChanges_ != identityChanges)
        makeIndex();
    const auto place = static_cast<std::size_t>(id);
    if (place < index_.size())
        return index_[place];
    const auto found = std::ranges::find_if(
        types_, [&](const ActionType* type) { return type && type->getId() == id; });
    return found == types_.end() ? nullptr : *found;
}

ActionType* ActionTypeManager::giveActionType(ActionType::Id id)
{
    if (ActionType* type = findActionType(id))
        return type;
    if (id == ActionType::Id::NONE)
        return nullptr;
    auto made = std::make_unique<ActionType>(id);
    addType(made.get());
    return made.release();
}

bool ActionTypeManager::replaceActionType(const ActionType* type)
{
    ActionType* present = type ? findActionType(type->getId()) : nullptr;
    if (!present)
        return false;
    *present = *type;
    return true;
}

void ActionTypeManager::output(std::ostream& stream) { ActionTypeWriter(this).writeXml(stream); }

void ActionTypeManager::output(ZelXmlTree& tree) { ActionTypeWriter(this).writeXml(tree); }

void ActionTypeManager::output(const std::string& fileName)
{
    ZelXmlTree tree;
    output(tree);
    saveTree(tree, fileName);
}

} // namespace Standard
