#include <zelstandard/attributes/StateAttributeManager.h>

#include <fstream>
#include <memory>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeReader.h>
#include <zelstandard/attributes/StateAttributeWriter.h>
#include <zelstandard/datafiles/DataFile.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

StateAttributeManager::StateAttributeManager(ActionTypeManager* actionTypes)
    : actionTypes_(actionTypes)
{
}

StateAttributeManager::~StateAttributeManager() { reset(); }

void StateAttributeManager::reset()
{
    for (StateAttribute* attribute : attributes_)
        delete attribute;
    attributes_.clear();
    current_ = nullptr;
}

void StateAttributeManager::add(StateAttributeToken token, ActionType* actionType)
{
    if (findStateAttributeToToken(token))
        return;
    auto made = std::make_unique<StateAttribute>(token, actionType);
    attributes_.push_back(made.get());
    made.release();
}

StateAttribute* StateAttributeManager::giveStateAttribute(StateAttributeToken token,
                                                          ActionTypeId actionType)
{
    if (StateAttribute* attribute = findStateAttributeToToken(token))
        return attribute;
    add(token, actionTypes_ ? actionTypes_->findActionType(actionType) : nullptr);
    return attributes_.back();
}

StateAttribute* StateAttributeManager::findStateAttributeToToken(StateAttributeToken token) const
{
    for (StateAttribute* attribute : attributes_)
        if (attribute->getToken() == token)
            return attribute;
    return nullptr;
}

StateAttribute* StateAttributeManager::findStateAttributeToName(const std::string& name) const
{
    const Tools::StringCompare matches(name, 1);
    for (StateAttribute* attribute : attributes_)
        if (matches(attribute->getName()))
            return attribute;
    return nullptr;
}

StateAttribute*
StateAttributeManager::findStateAttributeToNameAndDescription(const std::string& text) const
{
    if (StateAttribute* attribute = findStateAttributeToName(text))
        return attribute;
    for (StateAttribute* attribute : attributes_)
        if (attribute->getDescription() == text)
            return attribute;
    return nullptr;
}

StateAttribute* StateAttributeManager::findStateAttributeFileInput(const std::string& text) const
{
    if (StateAttribute* attribute = findStateAttributeToName(text))
        return attribute;
    return findStateAttributeToToken(XMLUtil::get()->getStateAttrTokenToString(text));
}

void StateAttributeManager::init(const std::string& path)
{
    const auto stream = openDataFile(path);
    if (!stream)
        return;
    reset();
    if (stream->good())
        StateAttributeReader(this).readXml(*stream);
}

void StateAttributeManager::init(const ZelXmlTree& tree)
{
    reset();
    StateAttributeReader(this).readXml(tree);
}

void StateAttributeManager::output(std::ostream& stream)
{
    StateAttributeWriter(this).writeXML(stream);
}

void StateAttributeManager::output(ZelXmlTree& tree) { StateAttributeWriter(this).writeXML(tree); }

void StateAttributeManager::output(const std::string& path)
{
    std::ofstream file(path);
    output(file);
}

} // namespace Standard
