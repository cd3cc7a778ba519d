#include "Document.h"

#include "ConfigurationModel.h"
#include "Failure.h"
#include "MemberPath.h"
#include "TextEncoding.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zeltcfg {

namespace {

// Everything the library reports while a command runs: the elements'
// messages and the manager's log calls, in the order they came.
std::vector<std::string>& LibraryMessages() {
    static std::vector<std::string> messages;
    return messages;
}

void ReceiveMessage(const wchar_t* message) {
    LibraryMessages().push_back(ConvertWideToUtf8(message != nullptr ? message : L""));
}

std::string ErrorText(int error) { return std::strerror(error); }

std::wstring WidePath(const std::string& path) {
    std::wstring wide;
    if (!ConvertUtf8ToWide(path, wide))
        throw Failure(kExitInputOutput,
                      path + ": the file name is not valid UTF-8; rename the file or copy it");
    return wide;
}

std::string ReadAll(int descriptor, const std::string& name) {
    std::string text;
    char chunk[65536];
    for (;;) {
        const ssize_t count = read(descriptor, chunk, sizeof chunk);
        if (count == 0) return text;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw Failure(kExitInputOutput, name + ": cannot read: " + ErrorText(errno));
        text.append(chunk, static_cast<std::size_t>(count));
    }
}

std::string ReadInput(const std::string& argument, const std::string& name) {
    if (argument == kStandardInput) return ReadAll(STDIN_FILENO, name);
    const int descriptor = open(argument.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        throw Failure(kExitInputOutput,
                      name + ": cannot open the file: " + ErrorText(errno) + "; check the path");
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor);
        throw Failure(kExitInputOutput,
                      name +
                          ": not a regular file; give a configuration file, or - to read "
                          "standard input");
    }
    std::string text;
    try {
        text = ReadAll(descriptor, name);
    } catch (...) {
        close(descriptor);
        throw;
    }
    close(descriptor);
    return text;
}

const SchemaNode* FindSchema(const std::vector<std::string>& keys) {
    const SchemaNode* node = &ConfigurationSchema();
    for (const std::string& key : keys) {
        const SchemaNode* next = nullptr;
        for (const SchemaNode& member : node->members)
            if (member.key == key) next = &member;
        if (next == nullptr) return nullptr;
        node = next;
    }
    return node;
}

std::string HowToAdd(const std::vector<std::string>& keys) {
    const SchemaNode* node = FindSchema(keys);
    if (node == nullptr) return "add it";
    switch (node->kind) {
        case MemberKind::Object:
            return "add it as an object";
        case MemberKind::List:
            return "add it as an array of strings";
        case MemberKind::Integer:
            return "add it as an integer from 0 to 4294967295";
        case MemberKind::Text:
            return "add it as a string";
    }
    return "add it";
}

// The members named by the library's messages, outermost first: each level
// names its element ("element:HTTPS") and the innermost the attribute
// ("attr:SSLFilter"). The root and the list entries ("...Array", whose
// attribute is the entry's own string) add no key.
std::vector<std::string> FailingKeys(const std::vector<std::string>& messages) {
    std::vector<std::string> keys;
    std::string attribute;
    for (auto message = messages.rbegin(); message != messages.rend(); ++message) {
        const std::size_t element = message->find("element:");
        if (element == std::string::npos) continue;
        std::string name = message->substr(element + 8);
        const std::size_t comma = name.find(", attr:");
        attribute.clear();
        if (comma != std::string::npos) {
            attribute = name.substr(comma + 7);
            name.erase(comma);
        }
        const bool entry = name.size() > 5 && name.compare(name.size() - 5, 5, "Array") == 0;
        if (name != "VextorJSConfig" && !entry && (keys.empty() || keys.back() != name))
            keys.push_back(name);
    }
    if (!attribute.empty() && attribute != "StringValue") keys.push_back(attribute);
    return keys;
}

bool IsNull(const TextValue& value) {
    return value.type == TextValue::Type::Literal && DescribeType(value) == "null";
}

struct Diagnosis {
    std::size_t offset = 0;
    std::string pointer;
    std::string problem;
};

// Where in the text the member that the library failed on is, and what is
// wrong with it.
Diagnosis DiagnoseReadFailure(const TextValue& tree, const std::vector<std::string>& keys) {
    const TextValue* node = &tree;
    std::string pointer;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (node->type != TextValue::Type::Object)
            return {node->offset, pointer.empty() ? "/" : pointer,
                    "expected an object, found " + DescribeType(*node) + "; make it an object"};
        const TextMember* member = FindMember(*node, keys[i]);
        const std::string memberPointer = AppendPointer(pointer, keys[i]);
        if (member == nullptr || IsNull(member->value)) {
            const std::vector<std::string> path(keys.begin(), keys.begin() + i + 1);
            return {member == nullptr ? node->offset : member->value.offset, memberPointer,
                    "required member missing; " + HowToAdd(path)};
        }
        node = &member->value;
        pointer = memberPointer;
    }
    const SchemaNode* schema = FindSchema(keys);
    if (schema != nullptr && schema->kind == MemberKind::List) {
        if (node->type != TextValue::Type::Array)
            return {node->offset, pointer,
                    "expected an array of strings, found " + DescribeType(*node) +
                        "; write it as [ \"...\" ]"};
        for (std::size_t index = 0; index < node->items.size(); ++index) {
            const TextValue& item = node->items[index];
            if (item.type != TextValue::Type::String)
                return {
                    item.offset, AppendPointer(pointer, std::to_string(index)),
                    "list entry is " + DescribeType(item) + ", not a string; write it as a string"};
        }
    }
    return {node->offset, pointer.empty() ? "/" : pointer,
            "the library cannot read this member; see its messages below"};
}

void PrintLibraryMessages(const LoadOptions& options) {
    const std::vector<std::string>& messages = LibraryMessages();
    for (std::size_t i = 0; i < messages.size() && (options.verbose || i == 0); ++i)
        std::fprintf(stderr, "  %s\n", messages[i].c_str());
}

int ImportAndRead(Document& document, const LoadOptions& options) {
    LibraryMessages().clear();
    document.manager.reset(zeltCreateJSONManager(nullptr, 0));
    int result;
    if (document.argument == kStandardInput)
        result = document.manager->ImportFromJSONString(document.text.c_str(),
                                                        static_cast<int>(document.text.size()));
    else
        result = document.manager->ImportFromJSONFile(WidePath(document.argument).c_str());
    if (result == ZELT_BAD_ARGUMENT && document.argument != kStandardInput) {
        std::fprintf(stderr,
                     "%s: the library cannot open the file for import: another program holds "
                     "it open; close that program and try again\n",
                     document.name.c_str());
        PrintLibraryMessages(options);
        return kExitInputOutput;
    }
    if (result != ZELT_SUCCESS) {
        std::fprintf(stderr,
                     "%s: the library does not import this text (result %d); the document must "
                     "be one JSON object\n",
                     document.name.c_str(), result);
        PrintLibraryMessages(options);
        return kExitInvalid;
    }
    document.configuration.reset(VextorJSConfig::VextorJSConfig_CreateNewInstance());
    SetZeltDebugDumpCallBack(&ReceiveMessage);
    result = document.configuration->ReadFromJSONMgr(document.manager.get(),
                                                     document.manager->GetRootElement());
    SetZeltDebugDumpCallBack(nullptr);
    if (result == ZELT_SUCCESS) return kExitSuccess;
    const Diagnosis diagnosis = DiagnoseReadFailure(document.tree, FailingKeys(LibraryMessages()));
    document.failedPointer = diagnosis.pointer;
    std::fprintf(stderr, "%s: %s: %s\n", document.Place(diagnosis.offset).c_str(),
                 diagnosis.pointer.c_str(), diagnosis.problem.c_str());
    PrintLibraryMessages(options);
    return kExitInvalid;
}

// A file made beside another, removed again unless it was renamed into place.
class TemporaryFile {
public:
    TemporaryFile(const std::string& folder, const std::string& stem) {
        path_ = folder + "/." + stem + ".zeltcfg-XXXXXX";
        descriptor_ = mkostemp(path_.data(), O_CLOEXEC);
        if (descriptor_ < 0)
            throw Failure(kExitInputOutput, "cannot create a temporary file in " + folder + ": " +
                                                ErrorText(errno) + "; the folder must be writable");
    }
    ~TemporaryFile() {
        if (descriptor_ >= 0) close(descriptor_);
        if (!renamed_) unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const { return path_; }
    int descriptor() const { return descriptor_; }
    void MarkRenamed() { renamed_ = true; }

private:
    std::string path_;
    int descriptor_ = -1;
    bool renamed_ = false;
};

// Lets the library save into the temporary file and reads back what it wrote.
std::string SaveThroughLibrary(IJSONManager& manager, TemporaryFile& file,
                               const std::string& name) {
    LibraryMessages().clear();
    const int result = manager.SaveToJSONFile(WidePath(file.path()).c_str());
    if (result != ZELT_SUCCESS) {
        std::string message = name + ": the configuration could not be saved (result " +
                              std::to_string(result) + "); the file is unchanged";
        for (const std::string& line : LibraryMessages()) message += "\n  " + line;
        throw Failure(kExitInputOutput, message);
    }
    return ReadAll(file.descriptor(), name);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

}  // namespace zeltcfg

// The library's log calls come here when the program defines this function:
// they are reported with the command's other messages.
extern "C" void PLXR_PrintMessage(const wchar_t* /*file*/, const wchar_t* function, int line,
                                  int level, const wchar_t* message) {
    using zeltcfg::ConvertWideToUtf8;
    zeltcfg::LibraryMessages().push_back(
        "JSONManager: " + ConvertWideToUtf8(function != nullptr ? function : L"") + "(" +
        std::to_string(line) + ") level " + std::to_string(level) + ": " +
        ConvertWideToUtf8(message != nullptr ? message : L""));
}

namespace zeltcfg {

std::string Document::Place(std::size_t offset) const {
    const TextLocation location = LocateOffset(text, offset);
    return name + ":" + std::to_string(location.line) + ":" + std::to_string(location.column);
}

int LoadDocument(const std::string& argument, const LoadOptions& options, Document& document) {
    document.argument = argument;
    document.name = argument == kStandardInput ? "<stdin>" : argument;
    try {
        document.text = ReadInput(argument, document.name);
    } catch (const Failure& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return failure.code;
    }
    if (const auto error = FindParseError(document.text)) {
        std::fprintf(stderr, "%s: not valid JSON: %s; correct the text at this place\n",
                     document.Place(error->offset).c_str(), error->reason.c_str());
        return kExitInvalid;
    }
    document.tree = ScanText(document.text);
    document.parsed = true;
    return ImportAndRead(document, options);
}

Document LoadOrFail(const std::string& argument) {
    Document document;
    const int result = LoadDocument(argument, LoadOptions{}, document);
    if (result != kExitSuccess) throw Failure(static_cast<ExitCode>(result), "");
    return document;
}

std::string WriteConfigurationText(VextorJSConfig::IVextorJSConfig& configuration) {
    ManagerHandle manager(zeltCreateJSONManager(nullptr, 0));
    if (configuration.WriteToJSONMgr(manager.get(), nullptr, 1) != ZELT_SUCCESS)
        throw Failure(kExitInvalid, "the library could not write the configuration");
    const char* folder = std::getenv("TMPDIR");
    TemporaryFile file(folder != nullptr && *folder != '\0' ? folder : "/tmp", "zeltcfg");
    return SaveThroughLibrary(*manager, file, "temporary file " + file.path());
}

bool SaveDocument(Document& document) {
    if (document.argument == kStandardInput) {
        PrintOutput(WriteConfigurationText(*document.configuration) + "\n");
        return true;
    }
    if (document.configuration->WriteToJSONMgr(document.manager.get(), nullptr, 1) != ZELT_SUCCESS)
        throw Failure(kExitInvalid, document.name +
                                        ": the library could not write the "
                                        "configuration; the file is unchanged");
    // A link is followed, so that the file it names is replaced, not the
    // link.
    char resolved[PATH_MAX];
    if (realpath(document.argument.c_str(), resolved) == nullptr)
        throw Failure(kExitInputOutput,
                      document.name + ": " + ErrorText(errno) + "; the file is unchanged");
    const std::string target = resolved;
    struct stat original {};
    if (stat(target.c_str(), &original) != 0)
        throw Failure(kExitInputOutput,
                      document.name + ": " + ErrorText(errno) + "; the file is unchanged");
    const std::string folder = FolderOf(target);
    TemporaryFile file(folder, target.substr(folder.size() + (folder == "/" ? 0 : 1)));
    const std::string text = SaveThroughLibrary(*document.manager, file, document.name);
    if (text == document.text) return false;

    const auto fail = [&document](const char* step) {
        throw Failure(kExitInputOutput, document.name + ": " + step + ": " + ErrorText(errno) +
                                            "; the file is unchanged");
    };
    if (fchmod(file.descriptor(), original.st_mode & 07777) != 0) fail("cannot keep permissions");
    // Keeping the owner needs privileges that an ordinary user lacks; the
    // file then belongs to that user, as any new file would.
    if (fchown(file.descriptor(), original.st_uid, original.st_gid) != 0 && errno != EPERM)
        fail("cannot keep the owner");
    if (fsync(file.descriptor()) != 0) fail("cannot flush the new text to disk");
    if (rename(file.path().c_str(), target.c_str()) != 0) fail("cannot replace the file");
    file.MarkRenamed();
    const int directory = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory >= 0) {
        fsync(directory);
        close(directory);
    }
    return true;
}

void PrintOutput(const std::string& bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() ||
        std::fflush(stdout) != 0)
        throw Failure(kExitInputOutput, "cannot write to standard output: " + ErrorText(errno));
}

}  // namespace zeltcfg
