// ExampleConfiguration.h: the sample configurations of examples/ as the tool
// loads them, for the tests of the parts that compare and change them.
#ifndef ZELTCFG_TESTS_EXAMPLECONFIGURATION_H
#define ZELTCFG_TESTS_EXAMPLECONFIGURATION_H

#include "ConfigurationModel.h"
#include "Document.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace zeltcfg {

inline std::string ReadExample(const std::string& name) {
    std::ifstream file(std::string(ZELT_SOURCE_DIR) + "/examples/" + name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// A typed tree read from text by the library, as the tool loads standard input.
struct LoadedConfiguration {
    explicit LoadedConfiguration(const std::string& text)
        : manager(zeltCreateJSONManager(nullptr, 0)),
          configuration(VextorJSConfig::VextorJSConfig_CreateNewInstance()) {
        EXPECT_EQ(ZELT_SUCCESS,
                  manager->ImportFromJSONString(text.c_str(), static_cast<int>(text.size())));
        EXPECT_EQ(ZELT_SUCCESS,
                  configuration->ReadFromJSONMgr(manager.get(), manager->GetRootElement()));
    }
    Member Bound() { return BindConfiguration(*configuration); }
    ManagerHandle manager;
    ConfigurationHandle configuration;
};

}  // namespace zeltcfg

#endif  // ZELTCFG_TESTS_EXAMPLECONFIGURATION_H
