#include <algorithm>
#include <ostream>
#include <vector>

#include <nlohmann/json.hpp>

#include <command/answer/Answer.h>

namespace command
{

namespace
{

using Json = nlohmann::ordered_json;

/// A path as a relative or absolute reference of URI form.
std::string uriOf(const std::string& path)
{
    static constexpr const char* digits = "0123456789ABCDEF";
    std::string uri;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') ||
                             std::string("-._~/:").find(c) != std::string::npos;
        if (c == '\\')
            uri += '/';
        else if (isPlain)
            uri += c;
        else
            uri += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
    return uri;
}

Json resultOf(const Finding& finding)
{
    static constexpr const char* levels[] = {"error", "warning", "note"};
    Json region = {
        {"startLine",   std::max<std::size_t>(finding.place.line,   1)                 },
        {"startColumn", std::max<std::size_t>(finding.place.column, 1)                 },
        {"endColumn",   std::max<std::size_t>(finding.place.column, 1) + finding.length}
    };
    const std::string text =
        finding.hint.empty() ? finding.message : finding.message + ". " + finding.hint;
    return {
        {"ruleId",    finding.rule                                                },
        {"level",     levels[static_cast<std::size_t>(finding.severity)]          },
        {"message",   {{"text", text}}                                            },
        {"locations", Json::array({{{"physicalLocation",
                                     {{"artifactLocation", {{"uri", uriOf(finding.place.file)}}},
                                      {"region", region}}}}})},
    };
}

} // namespace

void printSarif(const Answer& answer, std::ostream& out)
{
    std::vector<std::string> rules;
    Json results = Json::array();
    for (const Finding& finding : answer.findings) {
        if (std::ranges::find(rules, finding.rule) == rules.end())
            rules.push_back(finding.rule);
        results.push_back(resultOf(finding));
    }
    Json described = Json::array();
    for (const std::string& rule : rules)
        described.push_back({
            {"id", rule}
        });
    const Json driver = {
        {"name",    "zelstandard"      },
        {"version", ZELSTANDARD_VERSION},
        {"rules",   described          }
    };
    const Json run = {
        {"tool",       {{"driver", driver}}},
        {"columnKind", "unicodeCodePoints" },
        {"results",    results             }
    };
    const Json json = {
        {"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
        {"version", "2.1.0"                                        },
        {"runs",    Json::array({run})                             }
    };
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace command
