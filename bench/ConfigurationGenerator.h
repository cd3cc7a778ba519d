// ConfigurationGenerator.h: valid configuration documents of any size for the
// benchmarks, the same bytes for the same entry count and seed on every
// machine.
//
// A document with entries > 0 has every member of the configuration, each of
// the four string lists (the two address lists, the VPN descriptions and the
// request headers) holding that many entries, and two "DomainLists" strings
// of 100 KB. The entries mix addresses, CIDRs, host names, header lines,
// non-ASCII names and strings holding '/', '"' and '\'. With entries == 0 the
// document has only the required members. The text is in the library's own
// saved layout, so reading it into the typed tree, writing that back and
// saving it gives the same bytes.
#ifndef ZELT_BENCH_CONFIGURATIONGENERATOR_H
#define ZELT_BENCH_CONFIGURATIONGENERATOR_H

#include <cstddef>
#include <cstdint>
#include <string>

namespace zelt_bench {

// The number of string lists a generated document fills.
constexpr std::size_t kStringListCount = 4;
// The length in bytes of each "DomainLists" string.
constexpr std::size_t kDomainListsBytes = 100 * 1024;
constexpr std::uint32_t kDefaultSeed = 20240607;

std::string GenerateConfiguration(std::size_t entriesPerList, std::uint32_t seed = kDefaultSeed);

// The document of GenerateConfiguration for the same arguments with about one
// list entry in a hundred, at random places, changed, removed, or given a new
// entry before it: in equal shares, so the lists keep about their length.
std::string GenerateChangedConfiguration(std::size_t entriesPerList,
                                         std::uint32_t seed = kDefaultSeed);

}  // namespace zelt_bench

#endif  // ZELT_BENCH_CONFIGURATIONGENERATOR_H
