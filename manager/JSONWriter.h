// JSONWriter.h: the document's text form, written from the tree in one pass
// into one growing buffer.
//
// The layout is one line: `{ "a": 1, "b": [ 1, 2 ], "c": "x\/y" }`, `{ }`,
// `[ ]`; integers as 32-bit "%d", doubles as "%lf"; strings end at their first
// zero byte and escape \b \n \r \t \" \\ \/, every other byte below 0x20 as
// \u00xx in lowercase hexadecimal, and copy all other bytes as they are.
#ifndef ZELT_MANAGER_JSONWRITER_H
#define ZELT_MANAGER_JSONWRITER_H

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

struct json_object;

// A text that grows at its end, always followed by a zero byte. Room is made
// before it is written and never filled in advance, so that writing costs
// one pass over the bytes. A text made for a stream is written out to it
// whenever its buffer is full, so that its buffer stays small; Data and Size
// then hold what has not been written out yet.
class JSONText {
public:
    JSONText() = default;
    explicit JSONText(std::FILE* stream) : stream_(stream) {}
    JSONText(const JSONText&) = delete;
    JSONText& operator=(const JSONText&) = delete;

    const char* Data() const { return bytes_ ? bytes_.get() : ""; }
    std::size_t Size() const { return size_; }
    // Empties the text and keeps its storage.
    void Clear();
    // Writes out the rest of a text made for a stream. False when any write
    // to the stream was short.
    bool Flush();

    // Gives the end of the text, with room for at least count more bytes.
    char* Room(std::size_t count) {
        if (capacity_ - size_ <= count) MakeRoom(count);
        return bytes_.get() + size_;
    }
    // The bytes written into the room up to end become part of the text.
    void Commit(char* end) {
        size_ = static_cast<std::size_t>(end - bytes_.get());
        *end = '\0';
    }
    void Append(const char* bytes, std::size_t count) {
        char* end = Room(count);
        std::memcpy(end, bytes, count);
        Commit(end + count);
    }

private:
    void MakeRoom(std::size_t count);

    struct Release {
        void operator()(char* bytes) const { std::free(bytes); }
    };
    std::unique_ptr<char, Release> bytes_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    std::FILE* stream_ = nullptr;
    bool shortWrite_ = false;
};

// Appends the text of node (and everything below it) to out. Nesting depth
// is limited only by memory: the writer keeps its own stack.
void AppendJSONText(json_object* node, JSONText& out);

#endif  // ZELT_MANAGER_JSONWRITER_H
