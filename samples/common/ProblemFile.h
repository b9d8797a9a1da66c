#pragma once

#include <string>

namespace jsw::sample {

/**
 * Says what is wrong with a data file where somebody in the field finds it: in a file of its own
 * beside the library's log, "%ALLUSERSPROFILE%\\<id><name of the data file>-problem.txt", with the
 * time, and to a debugger. The file tells of the last time only. Nothing fails: what cannot be
 * written is not.
 */
void reportProblem(const std::string& path, const std::string& problem);

/** Takes the report of an earlier time away: the data file is good. */
void forgetProblem(const std::string& path);

}  // namespace jsw::sample
