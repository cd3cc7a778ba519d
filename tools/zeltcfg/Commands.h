// Commands.h: the subcommands of zeltcfg. Each returns the exit code, or
// throws Failure; data goes to standard output, messages to standard error.
#ifndef ZELTCFG_COMMANDS_H
#define ZELTCFG_COMMANDS_H

#include <string>
#include <vector>

namespace zeltcfg {

int RunCheck(const std::vector<std::string>& files, bool verbose, bool strict);
int RunShow(const std::string& file, bool json);
int RunGet(const std::string& file, const std::string& path);
// The changing commands wait up to waitSeconds while another process changes
// the same file (see EditLock.h).
int RunSet(const std::string& file, const std::string& path, const std::string& value,
           double waitSeconds);
int RunUnset(const std::string& file, const std::string& path, double waitSeconds);
int RunAdd(const std::string& file, const std::string& path, const std::string& value,
           double waitSeconds);
int RunRemove(const std::string& file, const std::string& path, const std::string& index,
              double waitSeconds);
int RunFormat(const std::vector<std::string>& files, bool check, double waitSeconds);
// Exit codes as diff(1) gives them: 0 the same, 1 different, 2 an invalid
// configuration or usage, 3 input or output.
int RunDiff(const std::string& first, const std::string& second, bool json);
// patch is a file or "-"; mergePatch reads it as a JSON Merge Patch instead of
// a JSON Patch; dryRun prints the result instead of writing the file.
int RunPatch(const std::string& file, const std::string& patch, bool mergePatch, bool dryRun,
             double waitSeconds);
// Prints the result, or with output not empty writes it to that file.
int RunMerge(const std::string& base, const std::vector<std::string>& overlays,
             const std::string& output, double waitSeconds);
int RunNew();
int RunSchema();

}  // namespace zeltcfg

#endif  // ZELTCFG_COMMANDS_H
