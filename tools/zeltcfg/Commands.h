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
int RunNew();
int RunSchema();

}  // namespace zeltcfg

#endif  // ZELTCFG_COMMANDS_H
