// zeltcfg: checks, shows, reads, changes, formats and creates configuration
// documents of the security agent through the zelt library.
//
//   zeltcfg check [-v] [--strict] FILE...   zeltcfg show [--json] FILE
//   zeltcfg get FILE PATH                   zeltcfg set FILE PATH VALUE
//   zeltcfg unset FILE PATH                 zeltcfg add FILE PATH VALUE
//   zeltcfg remove FILE PATH INDEX          zeltcfg fmt [--check] FILE...
//   zeltcfg diff [--json] A B               zeltcfg patch [--merge] FILE PATCH
//   zeltcfg merge BASE OVERLAY... [-o OUT]
// The changing commands (set, unset, add, remove, fmt, patch, merge -o) take
// --wait SECONDS.
//   zeltcfg new                             zeltcfg schema
#include "Commands.h"
#include "EditLock.h"
#include "Failure.h"
#include "MessageCapture.h"
#include "StandardStreams.h"
#include "TextEncoding.h"

#include <zelt/Version.h>
#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr const char* kFileHelp = "configuration file, or - for standard input";
constexpr const char* kPathHelp =
    "member path: a JSON Pointer (/ClientSetting/HTTPS/SSLFilter) or dotted "
    "(ClientSetting.HTTPS.SSLFilter); a list entry by its index "
    "(/AdvancedRule/EnforceList/IPList/0)";

struct Arguments {
    std::vector<std::string> files;
    std::string file, path, value, index, second, output;
    bool verbose = false, strict = false, json = false, check = false, merge = false,
         dryRun = false;
    double wait = zeltcfg::kDefaultWaitSeconds;
};

CLI::App* AddFileCommand(CLI::App& app, const char* name, const char* description,
                         Arguments& arguments) {
    CLI::App* command = app.add_subcommand(name, description);
    command->add_option("FILE", arguments.file, kFileHelp)->required();
    return command;
}

// A wait of whole or decimal seconds, bounded so that the deadline it makes
// cannot overflow the clock.
std::string CheckWaitSeconds(const std::string& text) {
    constexpr double kLongestWait = 1000000;
    char* end = nullptr;
    const double seconds = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(seconds >= 0 && seconds <= kLongestWait))
        return "expected a number of seconds from 0 to 1000000, such as 5 or 0.5; got \"" + text +
               "\"";
    return "";
}

// The option of the changing commands that bounds the wait for another
// process changing the same file.
void AddWaitOption(CLI::App& command, Arguments& arguments) {
    command
        .add_option("--wait", arguments.wait,
                    "seconds to wait while another process changes the file, then give up "
                    "with exit code 3; 0 tries once")
        ->type_name("SECONDS")
        ->check(CLI::Validator(CheckWaitSeconds, ""))
        ->capture_default_str();
}

void DefineCommands(CLI::App& app, Arguments& arguments) {
    CLI::App* check = app.add_subcommand(
        "check", "Check configuration files: prints FILE: ok, or where and why each one fails");
    check->add_option("FILE", arguments.files, kFileHelp)->required();
    check->add_flag("-v,--verbose", arguments.verbose, "print all of the library's messages");
    check->add_flag("--strict", arguments.strict,
                    "count unknown members, duplicate keys and out-of-range or mistyped values "
                    "as errors");

    AddFileCommand(app, "show", "Show the typed configuration tree, one member a line", arguments)
        ->add_flag("--json", arguments.json, "print the document as the library writes it");

    AddFileCommand(app, "get", "Print one value; a list prints one entry a line", arguments)
        ->add_option("PATH", arguments.path, kPathHelp)
        ->required();

    CLI::App* set =
        AddFileCommand(app, "set", "Set one integer or text member, or one list entry", arguments);
    set->add_option("PATH", arguments.path, kPathHelp)->required();
    set->add_option("VALUE", arguments.value, "the new value (integers: 0 to 4294967295)")
        ->required();
    AddWaitOption(*set, arguments);

    CLI::App* unset = AddFileCommand(app, "unset", "Make an optional member absent", arguments);
    unset->add_option("PATH", arguments.path, kPathHelp)->required();
    AddWaitOption(*unset, arguments);

    CLI::App* add = AddFileCommand(app, "add", "Append an entry to a list", arguments);
    add->add_option("PATH", arguments.path, "path of the list")->required();
    add->add_option("VALUE", arguments.value, "the new entry")->required();
    AddWaitOption(*add, arguments);

    CLI::App* remove = AddFileCommand(app, "remove", "Remove an entry from a list", arguments);
    remove->add_option("PATH", arguments.path, "path of the list")->required();
    remove->add_option("INDEX", arguments.index, "0-based index of the entry")->required();
    AddWaitOption(*remove, arguments);

    CLI::App* format =
        app.add_subcommand("fmt", "Rewrite files in the library's layout through the typed tree");
    format->add_option("FILE", arguments.files, kFileHelp)->required();
    format->add_flag("--check", arguments.check,
                     "write nothing; name the files that would change and exit 1 if any");
    AddWaitOption(*format, arguments);

    CLI::App* diff = app.add_subcommand(
        "diff", "Show how the configuration in SECOND differs from the one in FIRST");
    diff->add_option("FIRST", arguments.file, kFileHelp)->required();
    diff->add_option("SECOND", arguments.second, kFileHelp)->required();
    diff->add_flag("--json", arguments.json,
                   "print the differences as a JSON Patch that turns FIRST into SECOND");
    diff->footer(
        "Exit codes: 0 equal, 1 different, 2 invalid configuration or usage error, 3 input or "
        "output error.");

    CLI::App* patch = AddFileCommand(
        app, "patch", "Apply a JSON Patch, or a JSON Merge Patch, to a configuration file",
        arguments);
    patch->add_option("PATCH", arguments.second, "patch file, or - for standard input")->required();
    patch->add_flag("--merge", arguments.merge, "read PATCH as a JSON Merge Patch");
    patch->add_flag("--dry-run", arguments.dryRun,
                    "print the patched configuration and write nothing");
    AddWaitOption(*patch, arguments);

    CLI::App* merge = app.add_subcommand(
        "merge", "Apply overlays (JSON Merge Patches) in order to a base configuration");
    merge->add_option("BASE", arguments.file, kFileHelp)->required();
    merge->add_option("OVERLAY", arguments.files, "overlay file, or - for standard input")
        ->required();
    merge
        ->add_option("-o,--output", arguments.output,
                     "write the result to this file instead of standard output")
        ->type_name("OUT");
    AddWaitOption(*merge, arguments);

    app.add_subcommand("new",
                       "Print a new configuration with every required member at its "
                       "default");
    app.add_subcommand("schema", "Print a JSON Schema (draft 2020-12) of the configuration");
}

int Dispatch(const CLI::App& app, const Arguments& a) {
    using namespace zeltcfg;
    const std::string name = app.get_subcommands().front()->get_name();
    if (name == "check") return RunCheck(a.files, a.verbose, a.strict);
    if (name == "show") return RunShow(a.file, a.json);
    if (name == "get") return RunGet(a.file, a.path);
    if (name == "set") return RunSet(a.file, a.path, a.value, a.wait);
    if (name == "unset") return RunUnset(a.file, a.path, a.wait);
    if (name == "add") return RunAdd(a.file, a.path, a.value, a.wait);
    if (name == "remove") return RunRemove(a.file, a.path, a.index, a.wait);
    if (name == "fmt") return RunFormat(a.files, a.check, a.wait);
    if (name == "diff") return RunDiff(a.file, a.second, a.json);
    if (name == "patch") return RunPatch(a.file, a.second, a.merge, a.dryRun, a.wait);
    if (name == "merge") return RunMerge(a.file, a.files, a.output, a.wait);
    if (name == "new") return RunNew();
    return RunSchema();
}

// Help, the version and usage errors go where CLI11 would send them, through
// the tool's own streams.
int ReportParseResult(const CLI::App& app, const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream err;
    const int code = app.exit(error, out, err);
    zeltcfg::WriteStream(stdout, out.str());
    zeltcfg::WriteStream(stderr, err.str());
    return code == 0 ? zeltcfg::kExitSuccess : zeltcfg::kExitUsage;
}

// The command line as UTF-8 words; on every system the same from here on.
int RunZeltcfg(int argc, char** argv) {
    zeltcfg::PrepareStandardStreams();
    zeltcfg::HookLibraryLog();
    CLI::App app{"Checks, shows, changes and formats configuration documents of the agent.",
                 "zeltcfg"};
    // A member path starts with a slash, as a Windows-style option would.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "zeltcfg " ZELT_VERSION_STRING);
    app.require_subcommand(1);
    app.footer(
        "Exit codes: 0 success, 1 invalid configuration or absent value, 2 usage error, "
        "3 input or output error.\nRun zeltcfg COMMAND --help for the options of a command.");
    Arguments arguments;
    DefineCommands(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return ReportParseResult(app, error);
    }
    try {
        return Dispatch(app, arguments);
    } catch (const zeltcfg::Failure& failure) {
        if (*failure.what() != '\0') zeltcfg::PrintError("zeltcfg: %s\n", failure.what());
        return failure.code;
    } catch (const std::exception& error) {
        zeltcfg::PrintError("zeltcfg: %s\n", error.what());
        return zeltcfg::kExitInputOutput;
    }
}

}  // namespace

#ifdef _WIN32
// The arguments arrive as UTF-16 and are converted to UTF-8 once, here.
int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> words;
    for (int i = 0; i < argc; ++i) words.push_back(zeltcfg::ConvertWideToUtf8(argv[i]));
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return RunZeltcfg(argc, pointers.data());
}
#else
int main(int argc, char** argv) {
    // A write past the file size limit then fails with an error that is
    // reported, instead of ending the program halfway through a save.
    std::signal(SIGXFSZ, SIG_IGN);
    return RunZeltcfg(argc, argv);
}
#endif
