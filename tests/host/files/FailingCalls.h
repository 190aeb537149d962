#pragma once

#include <string>

/// In a program with these functions in place of the system's, one call that concerns a file can be made to fail.
namespace ko::test::failingCalls {

/// Calls are counted from 0, as long as they concern a file in this folder.
void plan(int number, const std::string& folder);
/// Ends the plan. Returns the call that has failed, such as "rename"; empty: there were fewer.
std::string end();

/// A program plans by these variables, and writes the call that has failed into the report; instead, the call may kill
/// it.
inline constexpr const char* numberVariable = "KO_FAILING_CALL";
inline constexpr const char* folderVariable = "KO_FAILING_FOLDER";
inline constexpr const char* reportVariable = "KO_FAILING_REPORT";
inline constexpr const char* killVariable = "KO_FAILING_KILLS"; ///< not empty: it does

} // namespace ko::test::failingCalls
