#pragma once

#include "host/recording/RecordingPlan.h"

namespace ko {

struct FrameParts;
class SetupSession;
class UserQuestions;

/// A name of title, date and time that no file has, beside the set-up or among the user's documents.
std::string suggestedFile(const SetupSession& session, DateTime now);

/// Asks the user what to do if the start time of the plan is past, and changes when the recording begins. Returns false
/// if the user cancels.
bool chooseStart(RecordingPlan& plan, const SetupSession& session, UserQuestions& questions, FrameParts& parts);

} // namespace ko
