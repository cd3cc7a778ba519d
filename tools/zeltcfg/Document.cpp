#include "Document.h"

#include "AtomicFileReplacement.h"
#include "Failure.h"
#include "InputReading.h"
#include "MessageCapture.h"
#include "ReadFailureDiagnosis.h"
#include "StandardStreams.h"
#include "TextEncoding.h"

namespace zeltcfg {

namespace {

void PrintLibraryMessages(const LoadOptions& options) {
    const std::vector<std::string>& messages = LibraryMessages();
    for (std::size_t i = 0; i < messages.size() && (options.verbose || i == 0); ++i)
        PrintError("  %s\n", messages[i].c_str());
}

int ReadConfiguration(Document& document, const LoadOptions& options) {
    document.configuration.reset(VextorJSConfig::VextorJSConfig_CreateNewInstance());
    int result;
    {
        DebugDumpCapture capture;
        result = document.configuration->ReadFromJSONMgr(document.manager.get(),
                                                         document.manager->GetRootElement());
    }
    if (result == ZELT_SUCCESS) return kExitSuccess;
    const Diagnosis diagnosis = DiagnoseReadFailure(document.tree, FailingKeys(LibraryMessages()));
    document.failedPointer = diagnosis.pointer;
    PrintError("%s: %s: %s\n", document.Place(diagnosis.offset).c_str(), diagnosis.pointer.c_str(),
               diagnosis.problem.c_str());
    PrintLibraryMessages(options);
    return kExitInvalid;
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
        PrintError(
            "%s: the library cannot open the file for import: another program holds "
            "it open; close that program and try again\n",
            document.name.c_str());
        PrintLibraryMessages(options);
        return kExitInputOutput;
    }
    if (result != ZELT_SUCCESS) {
        PrintError(
            "%s: the library does not import this text (result %d); the document must "
            "be one JSON object\n",
            document.name.c_str(), result);
        PrintLibraryMessages(options);
        return kExitInvalid;
    }
    return ReadConfiguration(document, options);
}

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
    return file.ReadWritten(name);
}

}  // namespace

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
        PrintError("%s\n", failure.what());
        return failure.code;
    }
    if (const auto error = FindParseError(document.text)) {
        PrintError("%s: not valid JSON: %s; correct the text at this place\n",
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
    TemporaryFile file(TemporaryFolder(), "zeltcfg");
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
    FileReplacement replacement(document.argument, document.name);
    const std::string text =
        SaveThroughLibrary(*document.manager, replacement.file(), document.name);
    if (text == document.text) return false;
    replacement.Commit();
    return true;
}

}  // namespace zeltcfg
