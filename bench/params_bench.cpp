// The intrusive tree and the record set against Boost.Intrusive's set and the standard library's maps.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <boost/intrusive/set.hpp>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <list>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

#include "orvil/params/red_black_tree.h"
#include "orvil/params/typed_records.h"

namespace {

void per_item(benchmark::State& state, std::int64_t items) {
    state.counters["ns/item"] = benchmark::Counter(
        static_cast<double>(items) * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::vector<int> shuffled(std::int64_t count, unsigned seed) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(seed));
    return numbers;
}

// Orders of the same numbers, together so many that the processor cannot learn a small one by heart.
std::vector<std::vector<int>> orders_of(std::int64_t count) {
    constexpr std::int64_t kTooManyToLearn = 200000;
    std::vector<std::vector<int>> orders;
    for (std::int64_t i = 0; i < std::max<std::int64_t>(1, kTooManyToLearn / count); ++i) {
        orders.push_back(shuffled(count, static_cast<unsigned>(i) + 10));
    }
    return orders;
}

// --- the tree -------------------------------------------------------------------------------------------------------

// Records of 32 bytes in every tree: a number, and a node with its colour in a pointer.
struct OrvilRecord {
    long number;
    arbt_node_t node;
};

namespace intrusive = boost::intrusive;

// Boost's own choice is safe_link: a node that leaves the set is marked as being in none, as ours is. A normal_link
// leaves it as it was.
template <intrusive::link_mode_type Mode>
struct BoostRecord : intrusive::set_base_hook<intrusive::link_mode<Mode>, intrusive::optimize_size<true>> {
    long number;
};
using MarkedRecord = BoostRecord<intrusive::safe_link>;
using UnmarkedRecord = BoostRecord<intrusive::normal_link>;
static_assert(sizeof(OrvilRecord) == 32 && sizeof(MarkedRecord) == 32 && sizeof(UnmarkedRecord) == 32);

[[gnu::noinline]] int compare_orvil(const arbt_node_t* node, const void* key) {
    const long number =
        reinterpret_cast<const OrvilRecord*>(reinterpret_cast<std::uintptr_t>(node) - offsetof(OrvilRecord, node))
            ->number;
    const long wanted = *static_cast<const long*>(key);
    return (wanted > number) - (wanted < number);
}

template <typename Record>
[[gnu::noinline]] int compare_boost(const Record* record, const void* key) {
    const long wanted = *static_cast<const long*>(key);
    return (wanted > record->number) - (wanted < record->number);
}

// Boost's set with a comparison like ours: a function of the host's with three results, behind a pointer.
template <typename Record>
struct LessThroughPointer {
    using Compare = int (*)(const Record* record, const void* key);
    Compare compare = opaque(compare_boost<Record>);

    static Compare opaque(Compare compare) {
        benchmark::DoNotOptimize(compare);
        return compare;
    }
    bool operator()(const Record& left, const Record& right) const { return compare(&left, &right.number) > 0; }
    bool operator()(long left, const Record& right) const { return compare(&right, &left) < 0; }
    bool operator()(const Record& left, long right) const { return compare(&left, &right) > 0; }
};

template <typename Record>
struct LessInline {
    bool operator()(const Record& left, const Record& right) const { return left.number < right.number; }
    bool operator()(long left, const Record& right) const { return left < right.number; }
    bool operator()(const Record& left, long right) const { return left.number < right; }
};

class OrvilTree {
public:
    explicit OrvilTree(const std::vector<int>& numbers) : records_(numbers.size()) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            records_[i].number = numbers[i];
            arbt_init_node(&records_[i].node);
        }
    }
    void insert(std::size_t i) { arbt_entry_node(&root_, &records_[i].node, compare_orvil, &records_[i].number); }
    void erase(std::size_t i) { arbt_erase_entry(&records_[i].node, &root_); }
    const void* find(long number) const { return arbt_find_node(&root_, compare_orvil, &number); }
    void clear() {
        for (OrvilRecord& record : records_) {
            arbt_init_node(&record.node);
        }
        arbt_init_root(&root_);
    }
    long walk() const {
        long sum = 0;
        for (const arbt_node_t* node = arbt_get_first(&root_); node != nullptr; node = arbt_get_next(node)) {
            sum += (node->parent & 1) != 0 ? 1 : 2;
        }
        return sum;
    }

private:
    std::vector<OrvilRecord> records_;
    arbt_root_t root_{nullptr, 0};
};

template <typename Record, template <typename> typename Less>
class BoostTree {
public:
    explicit BoostTree(const std::vector<int>& numbers) : records_(numbers.size()) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            records_[i].number = numbers[i];
        }
    }
    ~BoostTree() { set_.clear(); }
    BoostTree(const BoostTree&) = delete;
    BoostTree& operator=(const BoostTree&) = delete;
    void insert(std::size_t i) { set_.insert(records_[i]); }
    void erase(std::size_t i) { set_.erase(set_.iterator_to(records_[i])); }
    const void* find(long number) const {
        const auto found = set_.find(number, set_.value_comp());
        return found == set_.end() ? nullptr : &*found;
    }
    void clear() { set_.clear(); }
    long walk() const {
        long sum = 0;
        for (const Record& record : set_) {
            sum += record.number > 0 ? 1 : 2;
        }
        return sum;
    }

private:
    std::vector<Record> records_;
    intrusive::set<Record, intrusive::compare<Less<Record>>> set_;
};

class StdTree {
public:
    explicit StdTree(const std::vector<int>& numbers) : numbers_(numbers) {}
    void insert(std::size_t i) { map_.emplace(numbers_[i], 0); }
    void erase(std::size_t i) { map_.erase(numbers_[i]); }
    const void* find(long number) const {
        const auto found = map_.find(number);
        return found == map_.end() ? nullptr : &*found;
    }
    void clear() { map_.clear(); }
    long walk() const {
        long sum = 0;
        for (const auto& entry : map_) {
            sum += entry.first > 0 ? 1 : 2;
        }
        return sum;
    }

private:
    std::vector<int> numbers_;
    std::map<long, long> map_;
};

template <typename Tree>
void fill(Tree& tree, const std::vector<int>& order) {
    for (int i : order) {
        tree.insert(static_cast<std::size_t>(i));
    }
}

template <typename Tree>
void tree_insert(benchmark::State& state) {
    Tree tree(shuffled(state.range(0), 1));
    const std::vector<std::vector<int>> orders = orders_of(state.range(0));
    std::size_t round = 0;
    for (auto _ : state) {
        fill(tree, orders[round++ % orders.size()]);
        state.PauseTiming();
        tree.clear();
        state.ResumeTiming();
    }
    per_item(state, state.range(0));
}

template <typename Tree>
void tree_find(benchmark::State& state) {
    Tree tree(shuffled(state.range(0), 1));
    fill(tree, shuffled(state.range(0), 2));
    const std::vector<std::vector<int>> orders = orders_of(state.range(0));
    std::size_t round = 0;
    for (auto _ : state) {
        for (int number : orders[round++ % orders.size()]) {
            benchmark::DoNotOptimize(tree.find(number));
        }
    }
    per_item(state, state.range(0));
}

template <typename Tree>
void tree_erase(benchmark::State& state) {
    Tree tree(shuffled(state.range(0), 1));
    const std::vector<std::vector<int>> orders = orders_of(state.range(0));
    std::size_t round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        fill(tree, orders[(round + 1) % orders.size()]);
        const std::vector<int>& order = orders[round++ % orders.size()];
        state.ResumeTiming();
        for (int i : order) {
            tree.erase(static_cast<std::size_t>(i));
        }
    }
    per_item(state, state.range(0));
}

template <typename Tree>
void tree_walk(benchmark::State& state) {
    Tree tree(shuffled(state.range(0), 1));
    fill(tree, shuffled(state.range(0), 2));
    for (auto _ : state) {
        benchmark::DoNotOptimize(tree.walk());
    }
    per_item(state, state.range(0));
}

using BoostPointer = BoostTree<MarkedRecord, LessThroughPointer>;
using BoostUnmarked = BoostTree<UnmarkedRecord, LessThroughPointer>;
using BoostInline = BoostTree<MarkedRecord, LessInline>;

#define ORVIL_TREE_BENCH(work, name)                                                                         \
    BENCHMARK(work<OrvilTree>)->Name(name "/orvil")->RangeMultiplier(10)->Range(1000, 1000000);              \
    BENCHMARK(work<BoostPointer>)->Name(name "/boost,pointer")->RangeMultiplier(10)->Range(1000, 1000000);   \
    BENCHMARK(work<BoostUnmarked>)->Name(name "/boost,unmarked")->RangeMultiplier(10)->Range(1000, 1000000); \
    BENCHMARK(work<BoostInline>)->Name(name "/boost,inline")->RangeMultiplier(10)->Range(1000, 1000000);     \
    BENCHMARK(work<StdTree>)->Name(name "/std::map")->RangeMultiplier(10)->Range(1000, 1000000)

ORVIL_TREE_BENCH(tree_insert, "TreeInsert");
ORVIL_TREE_BENCH(tree_find, "TreeFind");
ORVIL_TREE_BENCH(tree_erase, "TreeErase");
ORVIL_TREE_BENCH(tree_walk, "TreeWalk");

// --- the record set -------------------------------------------------------------------------------------------------

// "Width17" and the like, or names that differ behind their sixteenth byte only.
enum NameKind : std::int64_t { kShort, kLong };

std::vector<std::string> names_of(std::int64_t count, std::int64_t kind) {
    std::vector<std::string> names;
    char name[40];
    for (int number : shuffled(count, 1)) {
        std::snprintf(name, sizeof name, kind == kShort ? "P%d" : "DrawingParameter%06d", number);
        names.emplace_back(name);
    }
    return names;
}

class OrvilRecords {
public:
    OrvilRecords() { vpr_init(&set_, 16, 64); }
    ~OrvilRecords() { vpr_destroy(&set_); }
    OrvilRecords(const OrvilRecords&) = delete;
    OrvilRecords& operator=(const OrvilRecords&) = delete;
    void add(const std::string& name, int value) { vpr_add_int(&set_, name.c_str(), value); }
    int get(const std::string& name) const { return vpr_ref_int(&set_, name.c_str()); }
    void update(const OrvilRecords& other) { vpr_update(&set_, &other.set_); }
    void clear() { vpr_clear(&set_); }
    long walk(int order) const {
        long sum = 0;
        const auto add = [](const char*, const __aVPRESTVITEM_t* item, void* user) {
            *static_cast<long*>(user) += item->value.i;
            return 0;
        };
        vpr_traverse(&set_, order, add, &sum);
        return sum;
    }

private:
    vpr_set_t set_;
};

using Value = std::variant<int, double, std::string>;

// A map by name with the order of creation beside it, as a program would write it.
template <template <typename...> class Map>
class StdRecords {
public:
    void add(const std::string& name, int value) {
        const auto [place, is_new] = records_.try_emplace(name);
        if (!is_new) {
            created_.erase(place->second);
        }
        created_.emplace_back(&place->first, value);
        place->second = std::prev(created_.end());
    }
    int get(const std::string& name) const {
        const auto found = records_.find(name);
        return found == records_.end() ? 0 : std::get<int>(found->second->second);
    }
    void update(const StdRecords& other) {
        for (const auto& [name, value] : other.created_) {
            add(*name, std::get<int>(value));
        }
    }
    void clear() {
        records_.clear();
        created_.clear();
    }
    long walk(int order) const {
        long sum = 0;
        if (order == 0) {
            for (const auto& [name, value] : created_) {
                sum += std::get<int>(value);
            }
        } else {
            for (const auto& [name, place] : records_) {
                sum += std::get<int>(place->second);
            }
        }
        return sum;
    }

private:
    using Created = std::list<std::pair<const std::string*, Value>>;
    Created created_;
    Map<std::string, typename Created::iterator> records_;
};

template <typename Records>
void fill(Records& records, const std::vector<std::string>& names) {
    int value = 0;
    for (const std::string& name : names) {
        records.add(name, value++);
    }
}

template <typename Records>
void records_add(benchmark::State& state) {
    const std::vector<std::string> names = names_of(state.range(0), state.range(1));
    Records records;
    for (auto _ : state) {
        fill(records, names);
        state.PauseTiming();
        records.clear();
        state.ResumeTiming();
    }
    per_item(state, state.range(0));
}

template <typename Records>
void records_get(benchmark::State& state) {
    std::vector<std::string> names = names_of(state.range(0), state.range(1));
    Records records;
    fill(records, names);
    std::shuffle(names.begin(), names.end(), std::mt19937(5));
    for (auto _ : state) {
        for (const std::string& name : names) {
            benchmark::DoNotOptimize(records.get(name));
        }
    }
    per_item(state, state.range(0));
}

template <typename Records>
void records_update(benchmark::State& state) {
    const std::vector<std::string> names = names_of(state.range(0), state.range(1));
    Records source, target;
    fill(source, names);
    fill(target, names);
    for (auto _ : state) {
        target.update(source);
    }
    per_item(state, state.range(0));
}

template <typename Records, int kOrder>
void records_walk(benchmark::State& state) {
    Records records;
    fill(records, names_of(state.range(0), state.range(1)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(records.walk(kOrder));
    }
    per_item(state, state.range(0));
}

void all_sizes(benchmark::internal::Benchmark* bench) {
    for (std::int64_t kind : {kShort, kLong}) {
        for (std::int64_t count : {100, 1000, 10000, 100000, 1000000}) {
            bench->Args({count, kind});
        }
    }
}

void short_names(benchmark::internal::Benchmark* bench) {
    for (std::int64_t count : {100, 1000, 10000, 100000, 1000000}) {
        bench->Args({count, kShort});
    }
}

using MapRecords = StdRecords<std::map>;
using HashRecords = StdRecords<std::unordered_map>;

#define ORVIL_RECORDS_BENCH(work, name)                                    \
    BENCHMARK(work<OrvilRecords>)->Name(name "/orvil")->Apply(all_sizes);  \
    BENCHMARK(work<MapRecords>)->Name(name "/std::map")->Apply(all_sizes); \
    BENCHMARK(work<HashRecords>)->Name(name "/std::unordered_map")->Apply(all_sizes)

ORVIL_RECORDS_BENCH(records_add, "RecordAdd");
ORVIL_RECORDS_BENCH(records_get, "RecordGet");
ORVIL_RECORDS_BENCH(records_update, "RecordUpdate");
BENCHMARK(records_walk<OrvilRecords, 0>)->Name("RecordWalk,created/orvil")->Apply(short_names);
BENCHMARK(records_walk<MapRecords, 0>)->Name("RecordWalk,created/std::map")->Apply(short_names);
BENCHMARK(records_walk<OrvilRecords, 1>)->Name("RecordWalk,named/orvil")->Apply(short_names);
BENCHMARK(records_walk<MapRecords, 1>)->Name("RecordWalk,named/std::map")->Apply(short_names);

}  // namespace
