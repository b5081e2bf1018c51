#include "runtime/block_pool.h"

#include <bit>
#include <cstdlib>
#include <cstring>

namespace orvil::detail {
namespace {

// Pages of idle chunks that are kept, so that a program that reads one file after the other does not ask the source
// each time.
constexpr std::size_t kIdlePagesKept = 4096;

// A pool that has more pages is going to be used as a whole.
constexpr std::size_t kPagesOfSmallPool = 256;

}  // namespace

BlockPool::Page* BlockPool::page_at(const Chunk* chunk, std::size_t index) {
    return reinterpret_cast<Page*>(reinterpret_cast<unsigned char*>(chunk->first_page) + index * kPageSize);
}

void BlockPool::list(Page*& head, Page* page) {
    page->previous = nullptr;
    page->next = head;
    if (head != nullptr) {
        head->previous = page;
    }
    head = page;
    page->listed = true;
}

void BlockPool::unlist(Page*& head, Page* page) {
    (page->previous == nullptr ? head : page->previous->next) = page->next;
    if (page->next != nullptr) {
        page->next->previous = page->previous;
    }
    page->listed = false;
}

// Makes an empty page serve the class.
BlockPool::Page* BlockPool::open_page(std::size_t index) {
    Page* page = empty_;
    if (page != nullptr) {
        unlist(empty_, page);
    } else {
        page = begin_page();
        if (page == nullptr) {
            return nullptr;
        }
    }
    if (page->chunk->pages_in_use++ == 0) {
        idle_pages_ -= page->chunk->pages;
    }
    reset_page(page, index);
    list(available_[index], page);
    return page;
}

// A page that has never been used; null when the source yields nothing.
BlockPool::Page* BlockPool::begin_page() {
    if ((chunks_ == nullptr || chunks_->pages_begun == chunks_->pages) && !add_chunk()) {
        return nullptr;
    }
    Page* page = page_at(chunks_, chunks_->pages_begun++);
    page->chunk = chunks_;
    return page;
}

// Of a page whose bit map is clear.
void BlockPool::start_carving(Page* page) {
    page->carved = kFirstBlock;
    page->dead = 0;
    page->due = 0;
    page->hint = 0;
}

void BlockPool::reset_page(Page* page, std::size_t index) {
    page->block_size = static_cast<std::uint32_t>((index + 1) * kGranularity);
    page->quick_limit = static_cast<std::uint32_t>(kPageSize) - 2 * page->block_size;
    std::memset(page->freed, 0, sizeof page->freed);
    start_carving(page);
}

void* BlockPool::take_seldom(std::size_t index, bool cleared) {
    Page* page = available_[index];
    if (page == nullptr) {
        page = open_page(index);
        if (page == nullptr) {
            return nullptr;
        }
    }
    unsigned char* block = page->dead == 0 ? carve(page, cleared) : take_freed(page, cleared);
    if (is_full(page)) {
        unlist(available_[index], page);
        page->due = page->block_size;
    }
    return block;
}

// The block that was freed last is the likeliest to be in the processor's caches.
unsigned char* BlockPool::take_freed(Page* page, bool cleared) {
    constexpr std::uint32_t kWords = sizeof page->freed / sizeof *page->freed;
    while (page->freed[page->hint] == 0) {
        page->hint = (page->hint + 1) % kWords;
    }
    std::uint64_t& word = page->freed[page->hint];
    const std::size_t unit = page->hint * std::size_t{64} + static_cast<unsigned>(std::countr_zero(word));
    word &= word - 1;
    page->dead -= page->block_size;
    unsigned char* block = reinterpret_cast<unsigned char*>(page) + unit * kGranularity;
    if (cleared) {
        clear(block, page->block_size);
    }
    return block;
}

// Lets a page without living blocks begin anew. What there is to clear in the bit map is a small part of what has been
// carved since the last time.
void BlockPool::rewind_page(Page* page) {
    constexpr std::size_t kBytesPerWord = kGranularity * 64;
    std::memset(page->freed, 0, (page->carved + kBytesPerWord - 1) / kBytesPerWord * sizeof *page->freed);
    start_carving(page);
}

// What a page becomes when it has room again or its last living block has gone. The last page of its class stays open:
// the next text of its size finds it.
void BlockPool::list_or_close(Page* page) {
    Page*& head = available_[class_of(page)];
    if (!page->listed) {
        list(head, page);
        page->due = page->carved - kFirstBlock;
    }
    if (!is_empty(page)) {
        return;
    }
    if (page->next == nullptr && page->previous == nullptr) {
        rewind_page(page);
    } else {
        unlist(head, page);
        close_page(page);
    }
}

void BlockPool::close_page(Page* page) {
    list(empty_, page);
    Chunk* chunk = page->chunk;
    if (--chunk->pages_in_use > 0) {
        return;
    }
    idle_pages_ += chunk->pages;
    if (idle_pages_ > kIdlePagesKept) {
        drop_chunk(chunk);
    }
}

// A chunk's record stands in front of its first page, which begins at the next multiple of the page size.
bool BlockPool::add_chunk() {
    const std::size_t pages = pages_ == 0 ? kPagesOfFirstChunk : kPagesPerChunk;
    const std::size_t size = (pages + 1) * kPageSize;
    void* memory = source_.obtain(size);
    if (memory == nullptr) {
        return false;
    }
    Chunk* chunk = static_cast<Chunk*>(memory);
    chunk->pages = pages;
    const std::uintptr_t behind = reinterpret_cast<std::uintptr_t>(chunk + 1);
    chunk->first_page = reinterpret_cast<Page*>((behind + kPageSize - 1) & ~(kPageSize - 1));
    if (!mark(chunk, true)) {
        mark(chunk, false);
        source_.release(memory);
        return false;
    }
    chunk->pages_begun = 0;
    chunk->pages_in_use = 0;
    chunk->previous = nullptr;
    chunk->next = chunks_;
    if (chunks_ != nullptr) {
        chunks_->previous = chunk;
    }
    chunks_ = chunk;
    if (pages_ >= kPagesOfSmallPool && pages_ < kIdlePagesKept) {
        source_.advise(memory, size);
    }
    pages_ += pages;
    idle_pages_ += pages;
    return true;
}

void BlockPool::drop_chunk(Chunk* chunk) {
    for (std::size_t index = 0; index < chunk->pages_begun; ++index) {
        unlist(empty_, page_at(chunk, index));
    }
    (chunk->previous == nullptr ? chunks_ : chunk->previous->next) = chunk->next;
    if (chunk->next != nullptr) {
        chunk->next->previous = chunk->previous;
    }
    pages_ -= chunk->pages;
    idle_pages_ -= chunk->pages;
    mark(chunk, false);
    source_.release(chunk);
}

// Notes in the bit maps that the pages of a chunk are this pool's, or no longer are.
bool BlockPool::mark(const Chunk* chunk, bool ours) {
    const std::uintptr_t start = reinterpret_cast<std::uintptr_t>(chunk->first_page) / kPageSize;
    for (std::uintptr_t number = start; number < start + chunk->pages; ++number) {
        if (number / kPagesPerLeaf >= kLeaves) {
            return false;
        }
        std::uint64_t*& leaf = leaves_[number / kPagesPerLeaf];
        if (leaf == nullptr && ours) {
            leaf = static_cast<std::uint64_t*>(std::calloc(kPagesPerLeaf / 64, sizeof *leaf));
        }
        if (leaf == nullptr) {
            return false;
        }
        const std::uint64_t bit = std::uint64_t{1} << (number % 64);
        std::uint64_t& word = leaf[number % kPagesPerLeaf / 64];
        word = ours ? word | bit : word & ~bit;
    }
    return true;
}

void BlockPool::abandon() {
    for (std::uint64_t*& leaf : leaves_) {
        std::free(leaf);
        leaf = nullptr;
    }
    for (Page*& page : available_) {
        page = nullptr;
    }
    empty_ = nullptr;
    chunks_ = nullptr;
    pages_ = 0;
    idle_pages_ = 0;
}

void BlockPool::trim() {
    for (Page*& head : available_) {
        if (head != nullptr && head->next == nullptr && is_empty(head)) {
            Page* page = head;
            unlist(head, page);
            close_page(page);
        }
    }
    for (Chunk* chunk = chunks_; chunk != nullptr;) {
        Chunk* next = chunk->next;
        if (chunk->pages_in_use == 0) {
            drop_chunk(chunk);
        }
        chunk = next;
    }
    if (chunks_ == nullptr) {
        abandon();
    }
}

}  // namespace orvil::detail
