#include <zelstandard/actions/ActionTypeManager.h>

#include <memory>

#include <zelstandard/actions/ActionTypeReader.h>
#include <zelstandard/actions/ActionTypeWriter.h>
#include <zelstandard/datafiles/DataFile.h>
#include <zelstandard/datafiles/zelofstream.h>

namespace Standard
{

ActionTypeManager::ActionTypeManager(const std::string& fileName) { init(fileName); }

ActionTypeManager::ActionTypeManager(const ZelXmlTree& tree) { init(tree); }

ActionTypeManager::~ActionTypeManager() { clear(); }

void ActionTypeManager::init(const std::string& fileName)
{
    const auto stream = openDataFile(fileName);
    if (!stream)
        return;
    clear();
    if (stream->good())
        ActionTypeReader(this).readXml(*stream);
}

void ActionTypeManager::init(const ZelXmlTree& tree)
{
    clear();
    ActionTypeReader(this).readXml(tree);
}

void ActionTypeManager::addType(ActionType* type) { types_.push_back(type); }

ActionType* ActionTypeManager::findActionType(ActionType::Id id) const
{
    for (ActionType* type : types_)
        if (type && type->getId() == id)
            return type;
    return nullptr;
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
    zelofstream file(fileName.c_str(), std::ios::out);
    output(file.stream());
}

void ActionTypeManager::clear()
{
    for (ActionType* type : types_)
        delete type;
    types_.clear();
}

} // namespace Standard
