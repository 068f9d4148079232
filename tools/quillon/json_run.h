// What the program answers as JSON, for tests.
#ifndef TOOLS_QUILLON_JSON_RUN_H_
#define TOOLS_QUILLON_JSON_RUN_H_

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tools/quillon/program_run.h"

namespace fdo::tool {

// Of a run with --json beside the arguments, which is expected to succeed without a message.
inline nlohmann::json RunForJson(std::vector<std::string> arguments) {
  arguments.push_back("--json");
  ProgramResult const result = RunQuillon(arguments);
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(result.err, "");
  return nlohmann::json::parse(result.out);
}

// The rows that the command query gives.
inline nlohmann::json Rows(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "query");
  return RunForJson(std::move(arguments));
}

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_JSON_RUN_H_
