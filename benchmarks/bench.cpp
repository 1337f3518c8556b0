// Operations of the library beside the least work that gives the same answer, measured in one run.
// Allocations are those of operator new and of pugixml's allocation functions; the peak is the most
// that they hold at a time, over what they held before.
//
// usage: bench DATA-DIRECTORY [options of Google Benchmark]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <new>
#include <sstream>
#include <string>
#include <vector>

#include <malloc.h>
#include <unistd.h>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <zelstandard/zelstandard.h>

#include "Floors.h"

namespace
{

struct Heap {
    std::size_t allocations = 0;
    std::size_t held = 0;
    std::size_t peak = 0;
} heap;

void* allocate(std::size_t size)
{
    void* const memory = std::malloc(size ? size : 1);
    ++heap.allocations;
    heap.held += malloc_usable_size(memory);
    heap.peak = std::max(heap.peak, heap.held);
    return memory;
}

void release(void* memory)
{
    heap.held -= malloc_usable_size(memory);
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size)
{
    if (void* memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { release(memory); }
void operator delete(void* memory, std::size_t) noexcept { release(memory); }

namespace
{

using namespace Standard;

/// One line of the table.
struct Operation {
    std::string name;
    std::function<void()> run;
    std::function<void()> floor;
    double aim = 0;
    bool isFile = false;
    std::function<void()> prepare = {}; ///< not measured
    bool isLarge = false;               ///< once is enough
};

std::string contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The document with what stands between its two marks repeated.
std::string repeated(const std::string& document, const std::string& first, const std::string& last,
                     int times)
{
    const std::size_t begin = document.find(first);
    const std::size_t end = document.rfind(last);
    std::string result = document.substr(0, begin);
    for (int i = 0; i < times; ++i)
        result.append(document, begin, end - begin);
    return result + document.substr(end);
}

struct Data {
    explicit Data(const std::string& directory)
        : actionFile(directory + "/ActionTypes.xml"),
          attributeFile(directory + "/StateAttributes.xml"),
          settingsFile(directory + "/Profiles/Standard.xml"), actionText(contents(actionFile)),
          attributeText(contents(attributeFile)), settingsText(contents(settingsFile)),
          actions(actionFile), attributes(&actions)
    {
        attributes.init(attributeFile);
    }
    std::string actionFile, attributeFile, settingsFile, actionText, attributeText, settingsText;
    ActionTypeManager actions;
    StateAttributeManager attributes;
};

std::string written(ActionTypeManager& actions)
{
    std::ostringstream stream;
    actions.output(stream);
    return stream.str();
}

/// The document and, so many times, its types under names that are no words.
std::string withUnknown(const std::string& document, int times)
{
    const std::string mark = "<ACTIONTYPE NAME=\"";
    const std::size_t begin = document.find(mark);
    const std::size_t end = document.rfind("</ACTIONTYPES>");
    std::string types;
    for (std::size_t at = begin; at < end;) {
        const std::size_t next = std::min(document.find(mark, at + mark.size()), end);
        types += mark + 'X';
        types.append(document, at + mark.size(), next - at - mark.size());
        at = next;
    }
    std::string result = document.substr(0, end);
    for (int i = 0; i < times; ++i)
        result += types;
    return result + document.substr(end);
}

void add(std::vector<Operation>& operations, Data& data)
{
    static int turn = 0;
    const auto next = [] { return turn = (turn + 1) & 31; };
    ActionType* type = data.actions.findActionType(ActionType::Id::LW);
    static double values[9];
    static const std::string words[] = {"SNOW", "BRAKE_LM71", "EARTH_INCR", "LW"};

    const auto query = [=](Classification kind, BridgeType bridge) {
        return [=] {
            ZelStandard::get()->setClassification(kind);
            ZelStandard::get()->setBridgeType(bridge);
            for (int i = 0; i < 100; ++i)
                benchmark::DoNotOptimize(type->getGammaSup());
        };
    };
    const auto table = [=](int structure) {
        return [=] {
            const int action = 1 + next() % 8;
            for (int i = 0; i < 100; ++i)
                benchmark::DoNotOptimize(floors::factor(1, structure, action, 0));
        };
    };
    operations.push_back({"class query of a building x100",
                          query(Classification::BUILDING, BridgeType::ROADWAY), table(0), 2});
    operations.push_back({"class query of a bridge x100",
                          query(Classification::BRIDGE, BridgeType::RAILWAY2), table(2), 2});
    operations.push_back({"findActionType, last type x100",
                          [&data] {
                              for (int i = 0; i < 100; ++i)
                                  benchmark::DoNotOptimize(
                                      data.actions.findActionType(ActionType::Id::DDEF));
                          },
                          [=] {
                              const int id = next();
                              for (int i = 0; i < 100; ++i)
                                  benchmark::DoNotOptimize(floors::object(id));
                          },
                          2});
    operations.push_back(
        {"flat query x100",
         [=] {
             const char* action = words[next() & 3].c_str();
             for (int i = 0; i < 100; ++i)
                 benchmark::DoNotOptimize(
                     ZelStandardGetCombValues(action, "DIN-EN", "BUILDING", values, 9));
         },
         [=] {
             const char* action = words[next() & 3].c_str();
             for (int i = 0; i < 100; ++i)
                 benchmark::DoNotOptimize(floors::factors(action, "DIN-EN", "BUILDING", values));
         },
         2});
    operations.push_back({"word to value x100",
                          [=] {
                              const std::string& word = words[next() & 3];
                              for (int i = 0; i < 100; ++i)
                                  benchmark::DoNotOptimize(
                                      XMLUtil::get()->getActionTypeIDToString(word));
                          },
                          [=] {
                              const std::string& word = words[next() & 3];
                              for (int i = 0; i < 100; ++i)
                                  benchmark::DoNotOptimize(floors::value(word));
                          },
                          1.5});
    operations.push_back({"value to word x100",
                          [=] {
                              const ActionType::Id id{next()};
                              for (int i = 0; i < 100; ++i)
                                  benchmark::DoNotOptimize(
                                      XMLUtil::get()->getStringToActionType(id));
                          },
                          [=] {
                              const int id = next();
                              for (int i = 0; i < 100; ++i)
                                  benchmark::DoNotOptimize(floors::word(id));
                          },
                          1.5});
    operations.push_back({"load action types",
                          [&] { const ActionTypeManager loaded(data.actionFile); },
                          [&] { floors::parse(data.actionText); }, 2.5, true});
    operations.push_back({"load state attributes",
                          [&] { data.attributes.init(data.attributeFile); },
                          [&] { floors::parse(data.attributeText); }, 2.5, true});
    const auto parseSettings = [&] { floors::parse(data.settingsText); };
    operations.push_back({"first get()",
                          [] {
                              ZelStandard::kill();
                              ZelStandard::get();
                          },
                          parseSettings, 2, true});
    operations.push_back({"superposition rules",
                          [&] { const StateInstructionManager rules(&data.attributes); },
                          parseSettings, 2, true});
    operations.push_back({"coefficients", [&] { Coefficients::get()->input(data.settingsFile); },
                          parseSettings, 2, true});
    operations.push_back({"activity of all attributes",
                          [&] {
                              ZelStandard::get()->setClassification(Classification::BRIDGE);
                              for (const StateAttribute* attribute :
                                   data.attributes.getAttributes())
                                  benchmark::DoNotOptimize(attribute->isActive());
                          },
                          [&] {
                              for (int i = 0; i < 131; ++i)
                                  benchmark::DoNotOptimize(floors::object(i & 31));
                          }});
    static const floors::Tree own(written(data.actions));
    operations.push_back({"write action types", [&] { written(data.actions); },
                          [] { benchmark::DoNotOptimize(own.save()); }, 3, true});

    for (const int times : {10, 1000}) {
        static std::string text;
        const std::string size = std::to_string(times) + " times ";
        operations.push_back({"load " + size + "the action types",
                              [] {
                                  std::istringstream stream(text);
                                  ZelXmlTree tree;
                                  tree.buildOfStream(stream);
                                  const ActionTypeManager loaded(tree);
                              },
                              [] { floors::parse(text); }, 0, true,
                              [&data, times] {
                                  text = repeated(data.actionText, "<ACTIONTYPE ", "</ACTIONTYPES>",
                                                  times);
                              },
                              times > 10});
        operations.push_back({"write into a tree of " + size + "unknown types",
                              [] {
                                  std::istringstream stream(text);
                                  ZelXmlTree tree;
                                  tree.buildOfStream(stream);
                                  ActionTypeManager read(tree);
                                  read.output(tree);
                              },
                              [] { floors::parse(text); }, 0, true,
                              [&data, times] { text = withUnknown(written(data.actions), times); },
                              times > 10});
    }
}

/// Keeps the times by name and prints nothing.
class Times : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.aggregate_name == "median" || run.repetitions <= 1)
                times_[run.run_name.function_name] = run.GetAdjustedRealTime();
    }
    /// 0 for what was not run.
    [[nodiscard]] double of(const std::string& name) const
    {
        const auto found = times_.find(name);
        return found == times_.end() ? 0 : found->second;
    }

private:
    std::map<std::string, double> times_;
};

std::string nanoseconds(double time)
{
    char text[32];
    const bool large = time >= 1e6;
    std::snprintf(text, sizeof text, "%.4g %s",
                  large         ? time / 1e6
                  : time >= 1e3 ? time / 1e3
                                : time,
                  large         ? "ms"
                  : time >= 1e3 ? "us"
                                : "ns");
    return text;
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 2)
        return 2;
    pugi::set_memory_management_functions(allocate, release);
    ZelStandardInitialiseFile((std::string(arguments[1]) + "/ActionTypes.xml").c_str());
    ZelStandard::get()->setAlternativeDBPath(std::string(arguments[1]) + "/Profiles/Standard.xml");
    Data data(arguments[1]);
    std::vector<Operation> operations;
    add(operations, data);
    for (const Operation& operation : operations)
        for (const auto& [suffix, run] : {
                 std::pair{"",       operation.run  },
                 std::pair{"/floor", operation.floor}
        }) {
            auto* registered = benchmark::RegisterBenchmark(
                (operation.name + suffix).c_str(),
                [run = run, prepare = operation.prepare](benchmark::State& state) {
                    if (prepare)
                        prepare();
                    for (auto _ : state)
                        run();
                });
            if (operation.isLarge)
                registered->Iterations(1);
            registered->Repetitions(operation.isLarge ? 1 : 3)->ReportAggregatesOnly(true);
        }
    benchmark::Initialize(&count, arguments);
    Times times;
    benchmark::RunSpecifiedBenchmarks(&times);

    std::printf("%-46s %10s %10s %6s %5s %11s %9s\n", "operation", "time", "floor", "ratio", "aim",
                "allocations", "peak kB");
    for (const Operation& operation : operations) {
        const double time = times.of(operation.name);
        const double floor = times.of(operation.name + "/floor");
        if (time == 0 || floor == 0)
            continue;
        if (operation.prepare)
            operation.prepare();
        if (!operation.isLarge)
            operation.run();
        const Heap before = heap;
        heap.peak = heap.held;
        operation.run();
        const Heap after = heap;
        char aim[8] = "";
        if (operation.aim > 0)
            std::snprintf(aim, sizeof aim, "%.1f", operation.aim);
        std::printf("%-46s %10s %10s %6.2f %5s %11zu", operation.name.c_str(),
                    nanoseconds(time).c_str(), nanoseconds(floor).c_str(), time / floor, aim,
                    after.allocations - before.allocations);
        if (operation.isFile)
            std::printf(" %9zu", (after.peak - before.held) / 1024);
        std::printf("\n");
    }
}
