// Parsing and encoding queries, against a C library that is known for its care with URLs and,
// through url_urllib.py, against Python's urllib.
#include "corvane/bridge/EXURLParser.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <uriparser/Uri.h>

namespace corvane::bench {
namespace {

constexpr int kSizes[] = {6, 100, 1000};

constexpr std::string_view kKeys[] = {"title", "notes", "due", "status", "project", "url"};
constexpr std::string_view kValues[] = {
    "Buy milk & bread", "Füchsia gießen, bevor es regnet",
    "2026-12-05",       "actionable",
    "Garden/House",     "https://example.org/find?q=cake+tin&order=asc#50%"};

/// What a program would encode: the values of so many parameters in a row.
std::string textOf(int parameters) {
    std::string text;
    for (int i = 0; i < parameters; ++i)
        text.append(kValues[i % 6]).append(" ");
    return text;
}

std::string queryOf(int parameters) {
    std::string query;
    for (int i = 0; i < parameters; ++i) {
        if (i > 0) query += '&';
        query += kKeys[i % 6];
        if (i >= 6) query += std::to_string(i);
        query.append("=").append(EXURLParser::percentPlusEncodeString(kValues[i % 6]));
    }
    return query;
}

void report(benchmark::State& state, const std::string& input) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(input.size()));
}

void parseQuery(benchmark::State& state) {
    const std::string query = queryOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto parameters = EXURLParser::parseQuery(query);
        if (!parameters) state.SkipWithError("unreadable");
        benchmark::DoNotOptimize(parameters);
    }
    report(state, query);
}

UriQueryListA* dissected(const std::string& query) {
    UriQueryListA* list = nullptr;
    int count = 0;
    uriDissectQueryMallocExA(&list, &count, query.data(), query.data() + query.size(), URI_TRUE,
                             URI_BR_DONT_TOUCH);
    return list;
}

/// The library's list alone, in which nothing can be looked up.
void uriparserToList(benchmark::State& state) {
    const std::string query = queryOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        uriFreeQueryListA(dissected(query));
    report(state, query);
}

void uriparserToMap(benchmark::State& state) {
    const std::string query = queryOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::map<std::string, std::optional<std::string>, std::less<>> parameters;
        UriQueryListA* list = dissected(query);
        for (auto* each = list; each; each = each->next) {
            auto& value = parameters[each->key];
            value.reset();
            if (each->value) value = each->value;
        }
        uriFreeQueryListA(list);
        benchmark::DoNotOptimize(parameters);
    }
    report(state, query);
}

void percentPlusEncode(benchmark::State& state) {
    const std::string text = textOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(EXURLParser::percentPlusEncodeString(text));
    report(state, text);
}

void uriparserEscape(benchmark::State& state) {
    const std::string text = textOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::string encoded(3 * text.size() + 1, '\0');
        const char* end = uriEscapeExA(text.data(), text.data() + text.size(), encoded.data(),
                                       URI_TRUE, URI_FALSE);
        encoded.resize(static_cast<std::size_t>(end - encoded.data()));
        benchmark::DoNotOptimize(encoded);
    }
    report(state, text);
}

void allSizes(benchmark::internal::Benchmark* benchmark) {
    for (int size : kSizes)
        benchmark->Arg(size);
}

BENCHMARK(parseQuery)->Apply(allSizes);
BENCHMARK(uriparserToMap)->Apply(allSizes);
BENCHMARK(uriparserToList)->Apply(allSizes);
BENCHMARK(percentPlusEncode)->Apply(allSizes);
BENCHMARK(uriparserEscape)->Apply(allSizes);

/// For url_urllib.py: a line for each size with the query and the text.
void printInputs() {
    for (int size : kSizes)
        std::printf("%d\t%s\t%s\n", size, queryOf(size).c_str(), textOf(size).c_str());
}

}  // namespace
}  // namespace corvane::bench

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--inputs") {
        corvane::bench::printInputs();
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
