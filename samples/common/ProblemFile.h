#pragma once

#include <string>

namespace jsw::sample {

/**
 * Reports what is wrong with a data file, with the time, to the debugger output and to a file
 * beside the library's log, "%ALLUSERSPROFILE%\\<id><name of the data file>-problem.txt". The file
 * contains only the last report. Never fails: what cannot be written is dropped.
 */
void reportProblem(const std::string& path, const std::string& problem);

/** Deletes an earlier report: the data file is correct. */
void forgetProblem(const std::string& path);

}  // namespace jsw::sample
