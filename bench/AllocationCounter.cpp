// Replaces malloc and its relatives, as the C library allows, by functions
// that count each block and hand the work to the C library's own allocator.
#include "AllocationCounter.h"

#include <malloc.h>

#include <cerrno>
#include <cstdint>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

std::size_t inUse = 0;
std::size_t peak = 0;

std::size_t BlockBytes(void* block) { return malloc_usable_size(block) + sizeof(void*); }

void* Counted(void* block) {
    if (block != nullptr) {
        inUse += BlockBytes(block);
        if (inUse > peak) peak = inUse;
    }
    return block;
}

void Uncount(void* block) {
    if (block != nullptr) inUse -= BlockBytes(block);
}

}  // namespace

namespace zelt_bench {
std::size_t HeapInUse() { return inUse; }
std::size_t HeapPeak() { return peak; }
void ResetHeapPeak() { peak = inUse; }
}  // namespace zelt_bench

extern "C" {

void* malloc(std::size_t size) noexcept { return Counted(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) noexcept {
    return Counted(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
    const std::size_t before = block != nullptr ? BlockBytes(block) : 0;
    void* moved = __libc_realloc(block, size);
    if (moved == nullptr) return size == 0 ? (inUse -= before, nullptr) : nullptr;
    inUse -= before;
    return Counted(moved);
}

void free(void* block) noexcept {
    Uncount(block);
    __libc_free(block);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return Counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return Counted(__libc_memalign(alignment, size));
}

int posix_memalign(void** out, std::size_t alignment, std::size_t size) noexcept {
    if (alignment % sizeof(void*) != 0 || (alignment & (alignment - 1)) != 0) return EINVAL;
    void* block = Counted(__libc_memalign(alignment, size));
    if (block == nullptr) return ENOMEM;
    *out = block;
    return 0;
}

void* valloc(std::size_t size) noexcept { return Counted(__libc_memalign(4096, size)); }

}  // extern "C"
