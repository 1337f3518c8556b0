#include <zelstandard/attributes/StateAttributeManager.h>

#include <array>
#include <fstream>
#include <memory>
#include <sstream>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeReader.h>
#include <zelstandard/attributes/StateAttributeWriter.h>
#include <zelstandard/datafiles/detail/DataFile.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

StateAttributeManager::StateAttributeManager(ActionTypeManager* actionTypes)
    : actionTypes_(actionTypes)
{
}

StateAttributeManager::StateAttributeManager(const StateAttributeManager& other) = default;
StateAttributeManager&
StateAttributeManager::operator=(const StateAttributeManager& other) = default;

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
    if (!findStateAttributeToToken(token))
        append(token, actionType);
}

StateAttribute* StateAttributeManager::giveStateAttribute(StateAttributeToken token,
                                                          ActionTypeId actionType)
{
    StateAttribute* attribute = findStateAttributeToToken(token);
    return attribute ? attribute : append(token, actionType);
}

StateAttribute* StateAttributeManager::append(StateAttributeToken token, ActionType* actionType)
{
    auto made = std::make_unique<StateAttribute>(token, actionType);
    attributes_.push_back(made.get());
    return made.release();
}

StateAttribute* StateAttributeManager::append(StateAttributeToken token, ActionTypeId actionType)
{
    return append(token, actionTypes_ ? actionTypes_->findActionType(actionType) : nullptr);
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
    ZelXmlTree tree;
    if (stream->good())
        tree.buildOfStream(*stream);
    init(tree);
}

void StateAttributeManager::init(const ZelXmlTree& tree)
{
    StateAttributeManager read(actionTypes_); // aside, so that the contents stay when memory ends
    StateAttributeReader(&read).readXml(tree);
    attributes_.swap(read.attributes_);
    current_ = nullptr;
}

void StateAttributeManager::output(std::ostream& stream)
{
    StateAttributeWriter(this).writeXML(stream);
}

void StateAttributeManager::output(ZelXmlTree& tree) { StateAttributeWriter(this).writeXML(tree); }

void StateAttributeManager::output(const std::string& path)
{
    std::ostringstream text;
    text.exceptions(std::ios::badbit); // set when there is no memory
    output(text);
    std::array<char, 8192> buffer; // the stream needs no memory from when it has the file open
    std::ofstream file;
    file.rdbuf()->pubsetbuf(buffer.data(), buffer.size());
    file.open(path);
    file << text.view();
}

} // namespace Standard
