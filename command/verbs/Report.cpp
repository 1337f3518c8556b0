#include <map>
#include <memory>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/names/Names.h>
#include <command/provenance/SafeFile.h>
#include <command/report/Page.h>
#include <command/verbs/Activity.h>
#include <command/verbs/Verbs.h>

namespace command
{

namespace
{

using Json = nlohmann::ordered_json;

/// What the script of the page reads; its layout is told there.
class PageData
{
public:
    PageData(const Context& context, std::vector<Mode> codes, std::vector<Structure> some)
        : context_(context), codes_(std::move(codes)), structures_(std::move(some))
    {
    }

    Json make()
    {
        (void)textIndex("");
        data_["lang"] = context_.options.language;
        data_["version"] = ZELSTANDARD_VERSION;
        for (const Mode code : codes_)
            data_["codes"].push_back({wordOf(code), nameOf(code)});
        for (const Structure structure : structures_)
            data_["structures"].push_back({wordOf(structure), nameOf(structure)});
        for (const FactorRow& row : factors)
            data_["factors"].push_back(
                {row.key, row.title, row.decimals, static_cast<int>(row.leader)});
        addFactors();
        addMaterials();
        addInForce();
        data_["steps"] = steps_;
        data_["texts"] = texts_;
        data_["lists"] = lists_;
        return std::move(data_);
    }

private:
    // Texts, steps and lists stand once; elsewhere their index.

    std::size_t textIndex(const std::string& text)
    {
        return indexOf(textIndices_, texts_, text, text);
    }

    static std::size_t indexOf(std::map<std::string, std::size_t>& indices, Json& all,
                               const std::string& key, const Json& value)
    {
        const auto [found, isNew] = indices.try_emplace(key, all.size());
        if (isNew)
            all.push_back(value);
        return found->second;
    }

    std::size_t stepIndex(const ValueStep& step)
    {
        const Place place = placeOf(*step.element);
        const Json json = {static_cast<int>(step.kind),
                           step.value,
                           textIndex(place.file + ":" + std::to_string(place.line)),
                           textIndex(step.origin.source),
                           textIndex(step.origin.status),
                           step.isOffice};
        return indexOf(stepIndices_, steps_, json.dump(), json);
    }

    std::size_t listIndex(const Json& list)
    {
        return indexOf(listIndices_, lists_, list.dump(), list);
    }

    Json jsonOf(const Value& value, double number, double ofEc)
    {
        Json steps = Json::array();
        for (const ValueStep& step : value.steps)
            steps.push_back(stepIndex(step));
        return {number, textIndex(value.origin.status), number != ofEc, steps};
    }

    void addFactors()
    {
        data_["sets"] = Json::object();
        for (const ActionValues& type : context_.data().actionValues().types()) {
            data_["actions"].push_back({type.word, nameOf(type.id)});
            for (const Mode code : codes_)
                for (const Structure structure : structures_) {
                    const FactorSet* set = type.find(code, structure);
                    const FactorSet* ofEc = type.find(Mode::EC, structure);
                    if (!set)
                        continue;
                    Json& json =
                        data_["sets"][wordOf(code) + "|" + wordOf(structure) + "|" + type.word];
                    for (const FactorRow& row : factors) {
                        const Value& value = (*set)[row.value];
                        json.push_back(jsonOf(value, value.number,
                                              ofEc ? (*ofEc)[row.value].number : value.number));
                    }
                }
        }
    }

    void addMaterials()
    {
        const MaterialFile& file = context_.data().materialValues();
        for (const MaterialRow& row : materialTables)
            for (std::size_t column = 0; column < columnsOf(row).size(); ++column) {
                Json values;
                for (const Mode code : codes_)
                    values[wordOf(code)] =
                        jsonOf(file.find(row, code, column), valueOf(row, code, column),
                               valueOf(row, Mode::EC, column));
                data_["materials"].push_back(
                    {row.table, columnsOf(row)[column], nameOf(row), values});
            }
    }

    void addInForce()
    {
        for (const Mode code : codes_)
            for (const Structure structure : structures_) {
                const InForce inForce(code, structure);
                data_["inForce"][wordOf(code) + "|" + wordOf(structure)] = {
                    listIndex(attributesInForce()), listIndex(rulesInForce())};
            }
    }

    Json attributesInForce() const
    {
        Json list = Json::array();
        for (const auto* tag : context_.data().attributes().getAttributes())
            if (tag->isActive())
                list.push_back({tokenWord(tag->getToken()), nameOf(tag->getToken()),
                                tag->getActionType() ? wordOf(tag->getActionType()->getId()) : "-",
                                operatorWord(tag->getOperator()), groupText(tag->getExclGroup()),
                                groupText(tag->getCombGroup())});
        return list;
    }

    static std::string tokenWord(Standard::StateAttributeToken token)
    {
        return Standard::StateAttributeBase::getPersistenceStringFromToken(token);
    }

    static std::string groupText(int group) { return group == 0 ? "-" : std::to_string(group); }

    Json rulesInForce() const
    {
        Json list = Json::array();
        const auto& rules = context_.data().rules();
        for (const auto* rule : rules.getStateInstructions(rules.getCurrentTemplateID())) {
            Json tags = Json::array();
            for (const auto* tag : rule->getAttributes()) {
                const auto* known =
                    context_.data().attributes().findStateAttributeToToken(tag->getToken());
                if (known && known->isActive())
                    tags.push_back({tokenWord(tag->getToken()), operatorWord(tag->getOperator())});
            }
            list.push_back({Standard::XMLUtil::get()->getStringToInstruction(rule->getType()),
                            nameOf(rule->getType()), tags});
        }
        return list;
    }

    const Context& context_;
    std::vector<Mode> codes_;
    std::vector<Structure> structures_;
    Json data_;
    Json texts_ = Json::array();
    Json steps_ = Json::array();
    Json lists_ = Json::array();
    std::map<std::string, std::size_t> textIndices_;
    std::map<std::string, std::size_t> stepIndices_;
    std::map<std::string, std::size_t> listIndices_;
};

/// No tag begins in it, whatever the names are.
std::string forScript(const Json& data)
{
    std::string text;
    for (const char c : data.dump(-1, ' ', false, Json::error_handler_t::replace))
        text += c == '<' ? "\\u003c" : std::string(1, c);
    return text;
}

/// The page with its parts in their places.
std::string fill(std::string page, const std::map<std::string, std::string>& parts)
{
    std::string result;
    for (std::size_t at = 0; at < page.size();) {
        const std::size_t begin = std::min(page.find('@', at), page.size());
        result.append(page, at, begin - at);
        const std::size_t end = page.find('@', begin + 1);
        if (begin == page.size() || end == std::string::npos)
            break;
        result += parts.at(page.substr(begin + 1, end - begin - 1));
        at = end + 1;
    }
    return result;
}

Answer answerReport(const std::string& path, const Context& context)
{
    refuseToReplace(path, "");
    const bool isGerman = context.options.language == "de";
    const std::vector<Mode> codes = context.codes();
    std::string title = isGerman ? "Beiwerte der Normen" : "Factors of the design codes";
    for (const Mode code : codes)
        title += (code == codes.front() ? ": " : ", ") + wordOf(code);
    const Json data = PageData(context, codes, context.structures()).make();
    const std::string page = fill(page::html, {
                                                  {"lang",   context.options.language},
                                                  {"title",  title                   },
                                                  {"style",  page::style             },
                                                  {"script", page::script            },
                                                  {"data",   forScript(data)         }
    });
    replaceFile(path, page);
    Answer answer;
    Section& section = answer.section();
    section.lines = {"Wrote " + path + "; open it in any browser."};
    section.facts = {
        {"file", path}
    };
    context.noteSettings(answer);
    context.noteOffice(answer);
    return answer;
}

} // namespace

Question declareReport(CLI::App& app)
{
    auto path = std::make_shared<std::string>();
    app.add_option("FILE", *path, "The page to write, in the language of --lang")->required();
    return [path](const Context& context) { return answerReport(*path, context); };
}

} // namespace command
