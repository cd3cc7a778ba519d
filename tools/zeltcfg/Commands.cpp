#include "Commands.h"

#include "ConfigurationModel.h"
#include "Document.h"
#include "EditLock.h"
#include "Failure.h"
#include "Lint.h"
#include "MemberPath.h"
#include "StandardStreams.h"
#include "TextEncoding.h"

#include <algorithm>
#include <optional>

namespace zeltcfg {

namespace {

std::string Indent(int depth) { return std::string(2 * static_cast<std::size_t>(depth), ' '); }

void AppendMember(const Member& member, int depth, std::string& out);

void AppendMembers(const Member& object, int depth, std::string& out) {
    for (const Member& member : object.members()) AppendMember(member, depth, out);
}

// One member a line, children indented below their parent, list entries
// numbered from 0 as in paths.
void AppendMember(const Member& member, int depth, std::string& out) {
    out += Indent(depth) + member.key + ":";
    if (!member.present()) {
        out += " (absent)\n";
        return;
    }
    switch (member.kind) {
        case MemberKind::Integer:
            out += " " + std::to_string(member.integer()) + "\n";
            return;
        case MemberKind::Text:
            out += " " + QuoteText(ConvertWideToUtf8(member.text())) + "\n";
            return;
        case MemberKind::Object:
            out += "\n";
            AppendMembers(member, depth + 1, out);
            return;
        case MemberKind::List: {
            const std::vector<const std::wstring*> entries = member.entries();
            out += entries.empty() ? " (empty)\n" : "\n";
            for (std::size_t i = 0; i < entries.size(); ++i)
                out += Indent(depth + 1) + std::to_string(i) + ": " +
                       QuoteText(ConvertWideToUtf8(*entries[i])) + "\n";
            return;
        }
    }
}

std::wstring ToWide(const Document& document, const std::string& value) {
    std::wstring wide;
    if (!ConvertUtf8ToWide(value, wide))
        throw Failure(kExitUsage, document.name + ": " + document.name +
                                      ": the value is not valid UTF-8; give the text in UTF-8");
    return wide;
}

DWORD IntegerValue(const Document& document, const std::string& value, const std::string& pointer) {
    const auto number = ParseDecimal(value);
    if (!number)
        throw Failure(kExitUsage, document.name + ": value \"" + value + "\" for " + pointer +
                                      ": expected a whole number from 0 to 4294967295, written "
                                      "in decimal digits only");
    return *number;
}

void RequireSuccess(int result, const Document& document, const std::string& pointer) {
    if (result != ZELT_SUCCESS)
        throw Failure(kExitInvalid, document.name + ": " + pointer +
                                        ": the element refused the value (result " +
                                        std::to_string(result) + "); the file is unchanged");
}

// Rewrites one file, or with check names it if it would change; throws
// Failure when the save fails.
int FormatFile(const std::string& file, bool check) {
    Document document;
    const int result = LoadDocument(file, LoadOptions{}, document);
    if (result != kExitSuccess) return result;
    if (!check) {
        SaveChangedDocument(document);
        return kExitSuccess;
    }
    if (WriteConfigurationText(*document.configuration) == document.text) return kExitSuccess;
    PrintOutput(document.name + "\n");
    return kExitInvalid;
}

std::string SchemaOf(const SchemaNode& node, int depth, std::vector<std::string> fields = {}) {
    switch (node.kind) {
        case MemberKind::Integer:
            // The library writes 2147483648..4294967295 as -2147483648..-1.
            return "{ \"type\": \"integer\", \"minimum\": -2147483648, \"maximum\": "
                   "4294967295 }";
        case MemberKind::Text:
            return "{ \"type\": \"string\" }";
        case MemberKind::List:
            return "{ \"type\": \"array\", \"items\": { \"type\": \"string\" } }";
        case MemberKind::Object:
            break;
    }
    fields.push_back("\"type\": \"object\"");
    std::string properties = "\"properties\": {\n";
    std::string required;
    for (const SchemaNode& member : node.members) {
        properties += Indent(depth + 2) + QuoteText(member.key) + ": " +
                      SchemaOf(member, depth + 2) +
                      (&member == &node.members.back() ? "\n" : ",\n");
        if (member.required) required += (required.empty() ? "" : ", ") + QuoteText(member.key);
    }
    fields.push_back(properties + Indent(depth + 1) + "}");
    if (!required.empty()) fields.push_back("\"required\": [ " + required + " ]");
    fields.push_back("\"additionalProperties\": false");
    std::string out = "{\n";
    for (const std::string& field : fields)
        out += Indent(depth + 1) + field + (&field == &fields.back() ? "\n" : ",\n");
    return out + Indent(depth) + "}";
}

// Resolves path in the document's tree; a path error names the file.
ResolvedPath Resolve(Document& document, const std::string& path, AbsentParents parents) {
    try {
        return ResolvePath(BindConfiguration(*document.configuration), path, parents);
    } catch (const Failure& failure) {
        throw Failure(failure.code, document.name + ": " + failure.what());
    }
}

}  // namespace

int RunCheck(const std::vector<std::string>& files, bool verbose, bool strict) {
    int worst = kExitSuccess;
    for (const std::string& file : files) {
        Document document;
        int result = LoadDocument(file, LoadOptions{verbose}, document);
        if (document.parsed) {
            for (const LintFinding& finding : LintDocument(document.text, document.tree)) {
                // The read error already names this member.
                if (!document.failedPointer.empty() &&
                    finding.pointer.rfind(document.failedPointer, 0) == 0)
                    continue;
                PrintError("%s: %s%s: %s\n", document.Place(finding.offset).c_str(),
                           strict ? "" : "warning: ", finding.pointer.c_str(),
                           finding.problem.c_str());
                if (strict && result == kExitSuccess) result = kExitInvalid;
            }
        }
        if (result == kExitSuccess) PrintOutput(document.name + ": ok\n");
        worst = std::max(worst, result);
    }
    return worst;
}

int RunShow(const std::string& file, bool json) {
    Document document = LoadOrFail(file);
    if (json) {
        PrintOutput(WriteConfigurationText(*document.configuration) + "\n");
        return kExitSuccess;
    }
    std::string out;
    AppendMembers(BindConfiguration(*document.configuration), 0, out);
    PrintOutput(out);
    return kExitSuccess;
}

int RunGet(const std::string& file, const std::string& path) {
    Document document = LoadOrFail(file);
    const ResolvedPath target = Resolve(document, path, AbsentParents::Keep);
    const Member& member = target.member;
    if (target.absent) {
        std::string message = document.name + ": " + target.pointer + " is absent";
        if (target.absentPointer != target.pointer)
            message += ", since " + target.absentPointer + " is absent";
        PrintError("%s; %s\n", message.c_str(),
                   target.kind == MemberKind::List ? "add entries with \"zeltcfg add\""
                   : target.kind == MemberKind::Object
                       ? "set one of its members with \"zeltcfg set\""
                       : "give it a value with \"zeltcfg set\"");
        return kExitInvalid;
    }
    std::string out;
    if (target.entry) {
        out = ConvertWideToUtf8(*member.entries()[*target.entry]) + "\n";
    } else if (member.kind == MemberKind::Integer) {
        out = std::to_string(member.integer()) + "\n";
    } else if (member.kind == MemberKind::Text) {
        out = ConvertWideToUtf8(member.text()) + "\n";
    } else if (member.kind == MemberKind::List) {
        for (const std::wstring* entry : member.entries()) out += ConvertWideToUtf8(*entry) + "\n";
    } else {
        AppendMembers(member, 0, out);
    }
    PrintOutput(out);
    return kExitSuccess;
}

int RunSet(const std::string& file, const std::string& path, const std::string& value,
           double waitSeconds) {
    const EditLock lock(file, file, waitSeconds);
    Document document = LoadOrFail(file);
    const ResolvedPath target = Resolve(document, path, AbsentParents::Create);
    const Member& member = target.member;
    if (target.entry) {
        RequireSuccess(member.setEntry(*target.entry, ToWide(document, value)), document,
                       target.pointer);
    } else if (member.kind == MemberKind::Integer) {
        const DWORD number = IntegerValue(document, value, target.pointer);
        RequireSuccess(member.setInteger(&number), document, target.pointer);
    } else if (member.kind == MemberKind::Text) {
        const std::wstring text = ToWide(document, value);
        RequireSuccess(member.setText(&text), document, target.pointer);
    } else if (member.kind == MemberKind::List) {
        throw Failure(kExitUsage, document.name + ": " + target.pointer +
                                      " is a list; append an entry with \"zeltcfg add\", or "
                                      "set one entry by its index (" +
                                      target.pointer + "/0)");
    } else {
        throw Failure(kExitUsage,
                      document.name + ": " +
                          (target.pointer.empty() ? "the configuration" : target.pointer) +
                          " is an object; set one of its members");
    }
    SaveChangedDocument(document);
    return kExitSuccess;
}

int RunUnset(const std::string& file, const std::string& path, double waitSeconds) {
    const EditLock lock(file, file, waitSeconds);
    Document document = LoadOrFail(file);
    const ResolvedPath target = Resolve(document, path, AbsentParents::Keep);
    const Member& member = target.member;
    if (target.entry)
        throw Failure(kExitUsage, document.name + ": " + target.pointer +
                                      " is a list entry; remove it with \"zeltcfg remove FILE "
                                      "LIST INDEX\"");
    if (target.required)
        throw Failure(kExitUsage,
                      document.name + ": " +
                          (target.pointer.empty() ? "the configuration" : target.pointer) +
                          " is required and cannot be unset; change its value with \"zeltcfg "
                          "set\" instead");
    if (target.absent) return kExitSuccess;  // nothing to change, nothing written
    MakeAbsent(member);
    SaveChangedDocument(document);
    return kExitSuccess;
}

int RunAdd(const std::string& file, const std::string& path, const std::string& value,
           double waitSeconds) {
    const EditLock lock(file, file, waitSeconds);
    Document document = LoadOrFail(file);
    const ResolvedPath target = Resolve(document, path, AbsentParents::Create);
    if (target.entry || target.kind != MemberKind::List)
        throw Failure(kExitUsage, document.name + ": " + target.pointer + " is " +
                                      (target.entry ? "a list entry" : DescribeKind(target.kind)) +
                                      ", not a list; \"zeltcfg add\" appends to a list, such as "
                                      "/AdvancedRule/EnforceList/IPList");
    target.member.addEntry(ToWide(document, value));
    SaveChangedDocument(document);
    return kExitSuccess;
}

int RunRemove(const std::string& file, const std::string& path, const std::string& index,
              double waitSeconds) {
    const EditLock lock(file, file, waitSeconds);
    Document document = LoadOrFail(file);
    const ResolvedPath target = Resolve(document, path, AbsentParents::Keep);
    if (target.entry || target.kind != MemberKind::List)
        throw Failure(kExitUsage, document.name + ": " + target.pointer + " is " +
                                      (target.entry ? "a list entry" : DescribeKind(target.kind)) +
                                      ", not a list; name the list and the index of the entry "
                                      "to remove");
    const auto position = ParseDecimal(index);
    if (!position)
        throw Failure(kExitUsage, document.name + ": " + "index \"" + index +
                                      "\": expected the 0-based number of an entry, in decimal "
                                      "digits");
    if (target.absent) {
        PrintError("%s: %s is absent%s; nothing to remove\n", document.name.c_str(),
                   target.pointer.c_str(),
                   target.absentPointer == target.pointer
                       ? ""
                       : (", since " + target.absentPointer + " is absent").c_str());
        return kExitInvalid;
    }
    const std::size_t count = target.member.entries().size();
    if (*position >= count)
        throw Failure(kExitUsage,
                      document.name + ": " + "index " + index + ": the list " + target.pointer +
                          " has " + std::to_string(count) + (count == 1 ? " entry" : " entries") +
                          (count == 0 ? "" : ", numbered from 0 to " + std::to_string(count - 1)));
    target.member.removeEntry(*position);
    SaveChangedDocument(document);
    return kExitSuccess;
}

int RunFormat(const std::vector<std::string>& files, bool check, double waitSeconds) {
    int worst = kExitSuccess;
    for (const std::string& file : files) {
        int result;
        try {
            std::optional<EditLock> lock;
            if (!check) lock.emplace(file, file, waitSeconds);
            result = FormatFile(file, check);
        } catch (const Failure& failure) {
            PrintError("%s\n", failure.what());
            result = failure.code;
        }
        worst = std::max(worst, result);
    }
    return worst;
}

int RunNew() {
    ConfigurationHandle configuration(VextorJSConfig::VextorJSConfig_CreateNewInstance());
    PrintOutput(WriteConfigurationText(*configuration) + "\n");
    return kExitSuccess;
}

int RunSchema() {
    PrintOutput(SchemaOf(ConfigurationSchema(), 0,
                         {"\"$schema\": \"https://json-schema.org/draft/2020-12/schema\"",
                          "\"title\": \"zelt configuration document\""}) +
                "\n");
    return kExitSuccess;
}

}  // namespace zeltcfg
