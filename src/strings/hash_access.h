// What the rest of the library may do with hashes beyond their public members.
#pragma once

#include <cstddef>
#include <utility>

#include "orvil/runtime/heap.h"
#include "orvil/strings/hash_table.h"

namespace orvil::detail {

struct HashAccess {
    template <typename Node>
    static int buckets(const HashTable<Node>& hash) {
        return hash.table_size_;
    }

    // Gives a hash eight times its buckets when its chains have become long, which changes the order of its keys.
    // Without memory everything stays as it is.
    template <typename Node>
    static void keep_chains_short(HashTable<Node>& hash) {
        if (hash.count_ / kLongChain > hash.table_size_) {
            spread(hash, hash.table_size_ * kGrowth);
        }
    }

private:
    static constexpr int kLongChain = 8;
    static constexpr int kGrowth = 8;

    template <typename Node>
    static void spread(HashTable<Node>& hash, int size) {
        auto** fresh = static_cast<Node**>(orv_heap_alloc(static_cast<std::size_t>(size) * sizeof(Node*)));
        if (fresh == nullptr) {
            return;
        }
        hash.CloseKeys();
        Node** former = std::exchange(hash.buckets_, fresh);
        const int former_size = std::exchange(hash.table_size_, size);
        for (int bucket = 0; bucket < former_size; ++bucket) {
            for (Node* node = former[bucket]; node != nullptr;) {
                Node* next = node->next;
                node->bucket = hash.CalcHashValue(node->key);
                node->next = std::exchange(fresh[node->bucket], node);
                node = next;
            }
        }
        orv_heap_free(former);
    }
};

}  // namespace orvil::detail
