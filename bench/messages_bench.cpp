// Message maps: loading files of one map and of many, storing them, and looking texts up, against nlohmann-json and
// libconfig++ that fill a hash of the standard library. Each reports nanoseconds per message.
#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <libconfig.h++>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>

#include "orvil/messages/message_files.h"
#include "orvil/messages/message_manager.h"
#include "support/documents.h"

namespace {

constexpr int kMessagesOfAMap = 100;
constexpr int kLastCode = 9999;

// As many maps as it takes to hold so many messages.
struct Amount {
    int messages;
    int messages_of_a_map;
    int maps() const { return messages / messages_of_a_map; }
};

std::string text_of(int code) {
    return "The entity %1% in layer %2% cannot be converted, reason " + std::to_string(code);
}

void report_each(benchmark::State& state, int things) {
    state.counters["ns/message"] =
        benchmark::Counter(static_cast<double>(things) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// --- the library ----------------------------------------------------------------------------------------------------

struct Orvil {
    CMessageManager maps;

    void fill(const Amount& amount) {
        for (int code = 0; code < amount.maps(); ++code) {
            CMessageMap map;
            map.SetupSubjectKey(code, ("Map " + std::to_string(code)).c_str());
            for (int message = 0; message < amount.messages_of_a_map; ++message) {
                map.AddItem(message, text_of(message).c_str());
            }
            maps.AddMap(map);
        }
    }
    bool load(const std::string& path) { return maps.Load(path.c_str()); }
    bool store(const std::string& path) const { return maps.Store(path.c_str(), nullptr); }
    int count() const { return maps.GetItemCount(); }
    const char* find(int map, int message) const { return maps.SearchMessageMap(map)->SearchItemText(message); }
};

// --- peers ----------------------------------------------------------------------------------------------------------

struct Map {
    std::string title;
    std::unordered_map<int, std::string> messages;
};

struct Peer {
    std::map<int, Map> maps;

    void fill(const Amount& amount) {
        for (int code = 0; code < amount.maps(); ++code) {
            Map& map = maps[code];
            map.title = "Map " + std::to_string(code);
            for (int message = 0; message < amount.messages_of_a_map; ++message) {
                map.messages[message] = text_of(message);
            }
        }
    }
    int count() const { return static_cast<int>(maps.size()); }
    const char* find(int map, int message) const { return maps.at(map).messages.at(message).c_str(); }
};

struct Json : Peer {
    bool load(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        for (const auto& each : nlohmann::json::parse(text)) {
            Map& map = maps[each["code"].get<int>()];
            map.title = each["title"].get<std::string>();
            for (const auto& message : each["messages"]) {
                map.messages[message[0].get<int>()] = message[1].get<std::string>();
            }
        }
        return true;
    }
    bool store(const std::string& path) const {
        nlohmann::json root = nlohmann::json::array();
        for (const auto& [code, map] : maps) {
            nlohmann::json messages = nlohmann::json::array();
            for (const auto& [number, text] : map.messages) {
                messages.push_back({number, text});
            }
            root.push_back({{"code", code}, {"title", map.title}, {"messages", std::move(messages)}});
        }
        std::ofstream file(path, std::ios::binary);
        file << root.dump(1, '\t');
        return file.good();
    }
};

struct LibConfig : Peer {
    bool load(const std::string& path) {
        libconfig::Config config;
        config.readFile(path.c_str());
        for (const libconfig::Setting& each : config.lookup("maps")) {
            Map& map = maps[each["code"]];
            map.title = each["title"].c_str();
            for (const libconfig::Setting& message : each["messages"]) {
                map.messages[message[0]] = message[1].c_str();
            }
        }
        return true;
    }
    bool store(const std::string& path) const {
        using libconfig::Setting;
        libconfig::Config config;
        Setting& root = config.getRoot().add("maps", Setting::TypeList);
        for (const auto& [code, map] : maps) {
            Setting& each = root.add(Setting::TypeGroup);
            each.add("code", Setting::TypeInt) = code;
            each.add("title", Setting::TypeString) = map.title;
            Setting& messages = each.add("messages", Setting::TypeList);
            for (const auto& [number, text] : map.messages) {
                Setting& message = messages.add(Setting::TypeList);
                message.add(Setting::TypeInt) = number;
                message.add(Setting::TypeString) = text;
            }
        }
        config.writeFile(path.c_str());
        return true;
    }
};

// --- the measurements -----------------------------------------------------------------------------------------------

Amount amount_of(const benchmark::State& state) {
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

template <typename Library>
void load_maps(benchmark::State& state) {
    const Amount amount = amount_of(state);
    const std::string path = orvil::bench::text_file("messages", "");
    {
        Library library;
        library.fill(amount);
        library.store(path);
    }
    for (auto _ : state) {
        Library library;
        if (!library.load(path) || library.count() != amount.maps()) {
            state.SkipWithError("the maps are not loaded");
        }
    }
    report_each(state, amount.messages);
}

template <typename Library>
void store_maps(benchmark::State& state) {
    const std::string path = orvil::bench::text_file("messages", "");
    Library library;
    library.fill(amount_of(state));
    for (auto _ : state) {
        if (!library.store(path)) {
            state.SkipWithError("the maps are not stored");
        }
    }
    report_each(state, amount_of(state).messages);
}

template <typename Library>
void find_messages(benchmark::State& state) {
    const Amount amount = amount_of(state);
    Library library;
    library.fill(amount);
    for (auto _ : state) {
        for (int i = 0; i < amount.messages; ++i) {
            const int mixed =
                static_cast<int>(static_cast<unsigned>(i) * 7919U % static_cast<unsigned>(amount.messages));
            benchmark::DoNotOptimize(library.find(mixed / amount.messages_of_a_map, mixed % amount.messages_of_a_map));
        }
    }
    report_each(state, amount.messages);
}

// Maps of a hundred messages in growing number, and one map that grows up to its ten thousand codes.
void many_and_large(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"messages", "of_a_map"})->Unit(benchmark::kMillisecond);
    for (int messages : {1'000, 10'000, 100'000, 1'000'000}) {
        bench->Args({messages, kMessagesOfAMap});
    }
    for (int messages : {100, 1'000, kLastCode + 1}) {
        bench->Args({messages, messages});
    }
}

BENCHMARK_TEMPLATE(load_maps, Orvil)->Name("Load/orvil")->Apply(many_and_large);
BENCHMARK_TEMPLATE(load_maps, Json)->Name("Load/nlohmann-json")->Apply(many_and_large);
BENCHMARK_TEMPLATE(load_maps, LibConfig)->Name("Load/libconfig++")->Apply(many_and_large);
BENCHMARK_TEMPLATE(store_maps, Orvil)->Name("Store/orvil")->Apply(many_and_large);
BENCHMARK_TEMPLATE(store_maps, Json)->Name("Store/nlohmann-json")->Apply(many_and_large);
BENCHMARK_TEMPLATE(store_maps, LibConfig)->Name("Store/libconfig++")->Apply(many_and_large);
BENCHMARK_TEMPLATE(find_messages, Orvil)->Name("Find/orvil")->Apply(many_and_large);
BENCHMARK_TEMPLATE(find_messages, Json)->Name("Find/unordered_map")->Apply(many_and_large);

}  // namespace
