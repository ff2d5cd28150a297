#pragma once

#include <string>
#include <vector>

namespace quillon::test {

/// How a program ended.
struct ProgramRun {
    int status = -1; ///< exit status, or 128 plus the signal that ended it
    std::string output;
    std::string errors;
};

/// Runs the command line program with `arguments` and `input` on its standard input, to its end.
ProgramRun runCli(const std::vector<std::string>& arguments, const std::string& input = {});

} // namespace quillon::test
