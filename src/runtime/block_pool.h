// Small blocks by size class, for the many short texts and nodes of a conversion run.
//
// Memory comes from a source in chunks of pages of 64 KiB, a small chunk first and larger ones then. A page serves
// blocks of one size, carves them one behind the other and notes freed ones in a bit map of its own; blocks have no
// headers, since a page is found by clearing the low bits of an address, and freeing touches the page's record only. A
// page that runs empty serves any size again. Chunks that run empty are kept for the next file up to 256 MiB; the
// others go back to the source.
//
// Nothing is locked. A pool has no destructor: it may serve objects that are destroyed after it would be.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orvil::detail {

class BlockPool {
public:
    // Larger requests are not a pool's business.
    static constexpr std::size_t kLargestBlock = 1024;

    // Where chunks come from. `obtain` yields memory with any content, or null. `advise` hears of the chunks of a pool
    // of 16 to 256 MiB: they will be used as a whole, and are likely to stay.
    struct Source {
        void* (*obtain)(std::size_t size);
        void (*release)(void* chunk);
        void (*advise)(void* chunk, std::size_t size);
    };

    // Where a pool notes its pages. Addresses of 47 bits: a table of leaves, each a bit map of the pages of 4 GiB. It
    // stands apart from the pool, for it is large and begins as zeros, which take no room in the library's file.
    static constexpr std::size_t kLeaves = 0x8000;
    using PageMap = std::uint64_t* [kLeaves];

    // Blocks begin at multiples of `alignment`, which is 8 or 16. The map is this pool's alone.
    constexpr BlockPool(Source source, PageMap& map, std::size_t alignment = 2 * kGranularity)
        : source_(source), low_bits_(alignment - 1), leaves_(map) {}
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;

    // A zero-filled block of `size` bytes, 0 to kLargestBlock; null when the source yields nothing.
    void* allocate(std::size_t size) { return take(size, true); }

    // The same with undefined content.
    void* allocate_dirty(std::size_t size) { return take(size, false); }

    // Takes a block of this pool back.
    void release(void* block) {
        Page* page = page_of(block);
        const std::size_t unit = unit_of(block);
        page->hint = static_cast<std::uint32_t>(unit / 64);
        page->freed[unit / 64] |= std::uint64_t{1} << (unit % 64);
        page->dead += page->block_size;
        if (page->dead == page->due) {
            list_or_close(page);
        }
    }

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
    static constexpr std::size_t kGranularity = 8;
    static constexpr std::size_t kClasses = kLargestBlock / kGranularity;
    static constexpr std::size_t kPagesPerLeaf = 0x10000;

    struct Chunk;
    struct Page {
        Page* next;  // neighbours in the list of pages of its class that have room, or of empty pages
        Page* previous;
        Chunk* chunk;
        std::uint32_t carved;       // offset of the first byte that has not been carved
        std::uint32_t quick_limit;  // the last offset at which carving a block leaves room for one more
        std::uint32_t block_size;
        std::uint32_t dead;  // bytes of blocks that were freed and not taken again
        std::uint32_t due;   // the value of `dead` at which the page changes its list
        std::uint32_t hint;  // the word of the bit map in which a block was freed last
        bool listed;
        std::uint64_t freed[kPageSize / kGranularity / 64];  // where blocks begin that came back, by units
    };
    struct Chunk {
        Chunk* next;
        Chunk* previous;
        Page* first_page;
        std::size_t pages;
        std::size_t pages_begun;  // those behind them have never been used
        std::size_t pages_in_use;
    };
    static constexpr std::uint32_t kFirstBlock = 1152;
    static_assert(sizeof(Page) <= kFirstBlock);

    // Sizes are rounded up to the alignment; a size of 0 counts as 1.
    std::size_t class_of(std::size_t size) const { return ((size - (size != 0)) | low_bits_) / kGranularity; }
    static std::size_t class_of(const Page* page) { return page->block_size / kGranularity - 1; }
    static Page* page_of(const void* block) {
        return reinterpret_cast<Page*>(reinterpret_cast<std::uintptr_t>(block) & ~(kPageSize - 1));
    }
    static Page* page_at(const Chunk* chunk, std::size_t index);

    static void reset_page(Page* page, std::size_t index);
    static void rewind_page(Page* page);
    static void start_carving(Page* page);

    // Where a block begins in its page, in units of the granularity.
    static std::size_t unit_of(const void* block) {
        return reinterpret_cast<std::uintptr_t>(block) % kPageSize / kGranularity;
    }
    static bool is_full(const Page* page) {
        return page->dead == 0 && page->carved > page->quick_limit + page->block_size;
    }
    static bool is_empty(const Page* page) { return page->carved - kFirstBlock == page->dead; }

    // As long as nothing has come back, blocks are carved one behind the other. With the last one of a page there is
    // more to do.
    [[gnu::always_inline]] void* take(std::size_t size, bool cleared) {
        Page* page = available_[class_of(size)];
        if (page == nullptr || page->dead != 0 || page->carved > page->quick_limit) {
            return take_seldom(class_of(size), cleared);
        }
        return carve(page, cleared);
    }
    [[gnu::always_inline]] static unsigned char* carve(Page* page, bool cleared) {
        unsigned char* block = reinterpret_cast<unsigned char*>(page) + page->carved;
        page->carved += page->block_size;
        page->due += page->block_size;
        if (cleared) {
            clear(block, page->block_size);
        }
        return block;
    }
    void* take_seldom(std::size_t index, bool cleared);
    static unsigned char* take_freed(Page* page, bool cleared);
    Page* open_page(std::size_t index);
    Page* begin_page();

    // Most blocks are a few times sixteen bytes, for which a call takes longer than the work.
    static void clear(unsigned char* block, std::size_t size) {
        constexpr std::size_t kStep = 2 * kGranularity;
        std::memset(block, 0, kGranularity);
        if (size >= kStep) {
            std::memset(block, 0, kStep);
        }
        if (size > kStep) {
            std::memset(block + kStep, 0, size - kStep);
        }
    }

    void list(Page*& head, Page* page);
    void unlist(Page*& head, Page* page);
    void list_or_close(Page* page);
    void close_page(Page* page);
    bool add_chunk();
    void drop_chunk(Chunk* chunk);
    bool mark(const Chunk* chunk, bool ours);

    Source source_;
    std::size_t low_bits_;  // of the alignment
    PageMap& leaves_;
    Page* available_[kClasses] = {};  // pages with room, for each size
    Page* empty_ = nullptr;           // pages that serve any size
    Chunk* chunks_ = nullptr;         // only the first has pages that have never been used
    std::size_t pages_ = 0;
    std::size_t idle_pages_ = 0;  // of chunks without a page in use
};

}  // namespace orvil::detail
