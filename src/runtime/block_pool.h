// Small blocks by size class, for the many short texts and nodes of a conversion run.
//
// Memory comes from a source in chunks of pages of 64 KiB, a small chunk first and larger ones then. A page serves
// blocks of one size, carves them one behind the other and notes freed ones in a bit map of its own; blocks have no
// headers, since a page is found by clearing the low bits of an address, and freeing touches the page's record only. A
// page that runs empty serves any size again. Chunks that run empty are kept for the next file up to 32 of them, 256
// MiB; the others go back to the source.
//
// Nothing is locked. A pool has no destructor: it may serve objects that are destroyed after it would be.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvil::detail {

class BlockPool {
public:
    // Larger requests are not a pool's business.
    static constexpr std::size_t kLargestBlock = 1024;

    // Where chunks come from. `obtain` yields zero-filled memory or null.
    struct Source {
        void* (*obtain)(std::size_t size);
        void (*release)(void* chunk);
    };

    explicit constexpr BlockPool(Source source) : source_(source) {}
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;

    // A zero-filled block of `size` bytes, 0 to kLargestBlock; null when the source yields nothing.
    void* allocate(std::size_t size) { return take(size, true); }

    // The same with undefined content.
    void* allocate_dirty(std::size_t size) { return take(size, false); }

    // Takes a block of this pool back.
    void release(void* block);

    // Whether the address lies in one of this pool's pages.
    bool owns(const void* address) const {
        const std::uintptr_t number = reinterpret_cast<std::uintptr_t>(address) / kPageSize;
        const std::uint64_t* leaf = number / kPagesPerLeaf < kLeaves ? leaves_[number / kPagesPerLeaf] : nullptr;
        return leaf != nullptr && ((leaf[number % kPagesPerLeaf / 64] >> (number % 64)) & 1) != 0;
    }

    // The size of the block's class, which is at least the size that was asked for.
    static std::size_t block_size(const void* block) { return page_of(block)->block_size; }

    // Forgets every page: their memory has gone with its source.
    void abandon();

    // Gives the chunks without a living block back to the source.
    void trim();

private:
    static constexpr std::size_t kPageSize = 0x10000;
    static constexpr std::size_t kPagesOfFirstChunk = 16;
    static constexpr std::size_t kPagesPerChunk = 128;
    static constexpr std::size_t kGranularity = 16;
    static constexpr std::size_t kClasses = kLargestBlock / kGranularity;

    // Addresses of 47 bits: a table of leaves, each a bit map of the pages of 4 GiB.
    static constexpr std::size_t kPagesPerLeaf = 0x10000;
    static constexpr std::size_t kLeaves = 0x8000;

    struct Chunk;
    struct Page {
        Page* next;  // neighbours in the list of pages of its class that have room, or of empty pages
        Page* previous;
        Chunk* chunk;
        std::uint32_t carved;  // offset of the first byte that has not been carved
        std::uint32_t block_size;
        std::uint32_t reciprocal;  // of the size, in 2^-32
        std::uint32_t living;
        std::uint32_t hint;  // the word of the bit map in which a block was freed last
        bool clean;          // what has not been carved is still zero
        bool listed;
        std::uint64_t freed[kPageSize / kGranularity / 64];  // blocks that came back
    };
    struct Chunk {
        Chunk* next;
        Chunk* previous;
        Page* first_page;
        std::size_t pages;
        std::size_t pages_in_use;
    };
    static constexpr std::uint32_t kFirstBlock = 640;
    static_assert(sizeof(Page) <= kFirstBlock);

    static std::size_t class_of(std::size_t size) { return size == 0 ? 0 : (size - 1) / kGranularity; }
    static Page* page_of(const void* block) {
        return reinterpret_cast<Page*>(reinterpret_cast<std::uintptr_t>(block) & ~(kPageSize - 1));
    }
    static Page* page_at(const Chunk* chunk, std::size_t index);

    static void reset_page(Page* page, std::size_t index);
    static std::uint32_t index_of(const Page* page, const void* block);
    static bool is_full(const Page* page);

    void* take(std::size_t size, bool cleared) {
        const std::size_t index = class_of(size);
        Page* page = available_[index];
        if (page == nullptr) {
            page = open_page(index);
            if (page == nullptr) {
                return nullptr;
            }
        }
        return take_block(page, cleared);
    }
    Page* open_page(std::size_t index);
    void* take_block(Page* page, bool cleared);
    static unsigned char* take_freed(Page* page);
    void list(Page*& head, Page* page);
    void unlist(Page*& head, Page* page);
    void close_page(Page* page);
    bool add_chunk();
    void drop_chunk(Chunk* chunk);
    bool mark(const Chunk* chunk, bool ours);

    Source source_;
    Page* available_[kClasses] = {};  // pages with room, for each size
    Page* empty_ = nullptr;           // pages that serve any size
    Chunk* chunks_ = nullptr;
    std::size_t idle_chunks_ = 0;
    std::uint64_t* leaves_[kLeaves] = {};
};

}  // namespace orvil::detail
