#include "support/AllocationFaults.h"

#include <dlfcn.h>
#include <json-c/json.h>

#include <cstdint>
#include <cstring>

// glibc's own allocator, under the names it exports for replacements.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* block, std::size_t size);
extern "C" void __libc_free(void* block);

namespace {

// The blocks allocated while watching: an open-addressing table whose slots
// count only when they carry the current generation, so that starting anew
// empties it at once. It never allocates itself.
constexpr std::size_t kSlots = std::size_t{1} << 18;
void* const kRemoved = reinterpret_cast<void*>(std::uintptr_t{1});

struct Slot {
    void* block;
    std::size_t size;
    unsigned generation;
};

Slot slots[kSlots];
unsigned generation = 0;
bool watching = false;
bool inParser = false;
long failAt = 0;
std::size_t keptSize = 0;
AllocationStats stats;

std::size_t Home(void* block) {
    return (reinterpret_cast<std::uintptr_t>(block) >> 4) * 0x9E3779B97F4A7C15u % kSlots;
}

bool InUse(const Slot& slot) { return slot.generation == generation; }

Slot* Find(void* block) {
    for (std::size_t i = Home(block), probes = 0; probes < kSlots; i = (i + 1) % kSlots, ++probes) {
        if (!InUse(slots[i])) return nullptr;
        if (slots[i].block == block) return &slots[i];
    }
    return nullptr;
}

void Track(void* block, std::size_t size) {
    for (std::size_t i = Home(block), probes = 0; probes < kSlots; i = (i + 1) % kSlots, ++probes) {
        if (!InUse(slots[i]) || slots[i].block == kRemoved) {
            slots[i] = Slot{block, size, generation};
            ++stats.live;
            if (size == keptSize) ++stats.liveOfKeptSize;
            return;
        }
    }
    __builtin_trap();  // more live blocks than the table holds
}

void Untrack(void* block) {
    if (!watching || block == nullptr) return;
    Slot* slot = Find(block);
    if (slot == nullptr) return;  // allocated before watching started
    --stats.live;
    if (slot->size == keptSize) --stats.liveOfKeptSize;
    slot->block = kRemoved;
}

// Counts one allocation; true when it is the one to fail.
bool CountAndFail() {
    if (!watching) return false;
    ++stats.allocations;
    if (stats.allocations != failAt) return false;
    stats.failed = true;
    stats.failedInParser = inParser;
    return true;
}

void Tracked(void* block, std::size_t size) {
    if (watching && block != nullptr) Track(block, size);
}

// json-c 0.16's tokener copies each member name with strdup and uses the
// copy without testing it for null, so failing that one copy crashes inside
// json-c whatever its caller does. Those copies are counted but never failed.
bool FromUncheckedNameCopy(void* caller) {
    Dl_info info;
    return dladdr(caller, &info) != 0 && info.dli_sname != nullptr &&
           std::strcmp(info.dli_sname, "json_tokener_parse_ex") == 0;
}

}  // namespace

void StartWatchingAllocations(long failAtCount, std::size_t keptBlockSize) {
    ++generation;
    stats = AllocationStats{};
    failAt = failAtCount;
    keptSize = keptBlockSize;
    watching = true;
}

AllocationStats StopWatchingAllocations() {
    watching = false;
    return stats;
}

extern "C" {

// The parser's own calls run with a mark, so that a failure inside it can be
// told apart: json-c 0.16's tokener drops a value whose member it cannot add
// and loses what it cannot append, so such a failure may leave a document
// that lacks a member and a leaked value, whatever its caller does.
json_object* json_tokener_parse(const char* text) {
    using Parse = json_object* (*)(const char*);
    static const Parse parse = reinterpret_cast<Parse>(dlsym(RTLD_NEXT, "json_tokener_parse"));
    inParser = true;
    json_object* root = parse(text);
    inParser = false;
    return root;
}

void* malloc(std::size_t size) noexcept {
    if (CountAndFail()) return nullptr;
    void* block = __libc_malloc(size);
    Tracked(block, size);
    return block;
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    if (CountAndFail()) return nullptr;
    void* block = __libc_calloc(count, size);
    Tracked(block, count * size);
    return block;
}

void* realloc(void* block, std::size_t size) noexcept {
    if (block == nullptr) return malloc(size);
    if (size == 0) {
        Untrack(block);
        return __libc_realloc(block, 0);
    }
    // A failed growth leaves the old block in place, as the C library does.
    if (CountAndFail()) return nullptr;
    const bool tracked = watching && Find(block) != nullptr;
    void* moved = __libc_realloc(block, size);
    if (moved != nullptr && tracked) {
        Untrack(block);
        Track(moved, size);
    }
    return moved;
}

void free(void* block) noexcept {
    Untrack(block);
    __libc_free(block);
}

char* strdup(const char* text) noexcept {
    const std::size_t size = std::strlen(text) + 1;
    char* copy = nullptr;
    if (FromUncheckedNameCopy(__builtin_return_address(0))) {
        const bool wasWatching = watching;
        if (watching) ++stats.allocations;
        watching = false;
        copy = static_cast<char*>(__libc_malloc(size));
        watching = wasWatching;
        Tracked(copy, size);
    } else {
        copy = static_cast<char*>(malloc(size));
    }
    if (copy != nullptr) std::memcpy(copy, text, size);
    return copy;
}

char* strndup(const char* text, std::size_t limit) noexcept {
    const std::size_t length = strnlen(text, limit);
    char* copy = static_cast<char*>(malloc(length + 1));
    if (copy == nullptr) return nullptr;
    std::memcpy(copy, text, length);
    copy[length] = '\0';
    return copy;
}

}  // extern "C"
