#include <command/check/Files.h>

#include <algorithm>
#include <utility>

namespace command
{

namespace
{

bool isWithin(const Element& element, const Element* around)
{
    return around && element.begin >= around->begin && element.end <= around->end;
}

/// The attributes' list, not that of a rule.
const Element* findAttributes(const CheckedFile& file)
{
    for (const Element& element : file.document->elements())
        if (element.name == "STATEATTRIBUTES" && !isWithin(element, file.rules))
            return &element;
    return nullptr;
}

void visit(CheckedFile& file, const Element& element, const Form& form)
{
    file.sites.push_back({&element, &form});
    if (form.content != Form::Content::Elements)
        return;
    for (const Element* child : element.children) {
        const Form* known = form.child(child->name);
        if (!known)
            file.unknown.push_back({child, &form});
        if (!known && form.takesAnyName)
            known = form.children.front();
        if (known)
            visit(file, *child, *known);
    }
}

/// The form of a set, a DEFAULT or an annex by what stands around it.
bool isSet(const Element& element)
{
    return element.parent && element.parent->parent && element.parent->parent->name == "ANNEXES";
}

} // namespace

bool CheckedFile::hasSources() const
{
    return std::ranges::any_of(document->elements(), [](const Element& element) {
        return element.attribute("SOURCE") || element.attribute("STATUS") ||
               element.attribute("GAMMA_SOURCE");
    });
}

void CheckedFiles::add(std::shared_ptr<const Document> document, bool isOffice)
{
    auto file = std::make_unique<CheckedFile>();
    file->document = std::move(document);
    file->isOffice = isOffice;
    if (const Element* root = file->document->root()) {
        file->actionTypes = root->find("ACTIONTYPES");
        file->settings = root->find("SETTINGS");
        file->coefficients = root->find("COEFFICIENTS");
        file->stressBlock = root->find("STRESSBLOCK");
        file->rules = root->find("STATEINSTRUCTIONS");
        file->attributes = findAttributes(*file);
        const Form& whole = documentForm();
        if (const Form* part = whole.child(root->name))
            visit(*file, *root, *part);
        else
            visit(*file, *root, whole);
        if (file->actionTypes && !isOffice)
            file->actions = std::make_unique<ActionFile>(file->document);
        if (file->coefficients || file->stressBlock)
            file->materials = std::make_unique<MaterialFile>(file->document);
    }
    files.push_back(std::move(file));
}

void CheckedFiles::join()
{
    const CheckedFile* office = nullptr;
    for (const auto& file : files) {
        if (file->isOffice && file->actionTypes)
            office = file.get();
        if (!actions && file->actions)
            actions = file.get();
        if (!attributes && file->attributes)
            attributes = file.get();
        if (!rules && file->rules)
            rules = file.get();
    }
    const bool hasDefault =
        office && std::ranges::any_of(office->sites, [](const Site& site) {
            return isSet(*site.element) && site.element->get("NAME") == "DEFAULT";
        });
    if (actions && office && !hasDefault)
        withOffice = std::make_unique<ActionFile>(actions->document, office->document);
}

const FactorRow* factorOf(const Element& element)
{
    if (!element.parent || !isSet(*element.parent))
        return nullptr;
    const auto* row = std::ranges::find(factors, element.name, &FactorRow::element);
    return row == std::end(factors) ? nullptr : row;
}

std::string describe(const Element& element)
{
    std::vector<std::string> around;
    std::string own;
    for (const Element* at = &element; at; at = at->parent) {
        std::string part(at->get("NAME"));
        if (isSet(*at)) {
            const auto* row = std::ranges::find(structures, part, &StructureRow::word);
            if (row != std::end(structures))
                part = row->english;
        } else if (at->name == "STRESSBLOCK" ||
                   (at->parent && at->parent->name == "COEFFICIENTS")) {
            part = at->name;
        } else if (at->attribute("TYPE") && at->attribute("TEMPLATE")) {
            part = std::string(at->get("TYPE")) + ", " + std::string(at->get("TEMPLATE"));
        }
        if (at == &element && part.empty()) {
            const FactorRow* factor = factorOf(element);
            own = factor ? factor->title : std::string(element.name);
        } else if (!part.empty()) {
            around.push_back(part);
        }
    }
    std::string text;
    for (auto part = around.rbegin(); part != around.rend(); ++part)
        text += (text.empty() ? "" : ", ") + *part;
    if (own.empty())
        return text;
    return text.empty() ? own : own + " of " + text;
}

} // namespace command
