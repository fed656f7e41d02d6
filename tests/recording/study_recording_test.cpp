#include "recording/study_recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "recording/recording_lines.h"

namespace mirvane {
namespace {

using testing::HasSubstr;

const std::string session1 =
    R"({"session":1,"start":"2026-11-23T20:10:58.123Z","origin":5021.307,)"
    R"("firstKey":"2026-11-23T20:12:03.991Z","lastKey":"2026-11-23T20:12:59.004Z",)"
    R"("resets":["2026-11-23T20:11:50.000Z"],"end":204.2})";
const std::string session2 =
    R"({"session":2,"start":"2026-11-23T20:10:58.123Z","firstKey":null,"lastKey":null,)"
    R"("resets":[]})";
const std::string header = R"({"recording":2,"program":"0.2.0","data":"a1b2","participant":"P07",)"
                           R"("prompts":["The quick","Please \"call\""],"layout":"us",)"
                           R"("settings":{"isAutoCorrectionEnabled":true,"allowList":["helo"],)"
                           R"("disabledAppBundleIDs":[]},"timeZone":"Europe/Berlin","sessions":[)" +
                           session1 + "," + session2 + "]}\n";

std::string with(std::string line, const std::string& part, const std::string& replacement) {
  return line.replace(line.find(part), part.size(), replacement);
}

std::string errorOf(const std::string& contents) {
  try {
    static_cast<void>(parseStudyRecording(contents, "study.jsonl"));
  } catch (const RecordingError& error) {
    return error.what();
  }
  return "no error";
}

TEST(StudyRecording, ComesBackAsItWasWritten) {
  const std::string contents =
      header +
      R"({"session":1,"t":65.868,"type":"down","keyCode":17,"text":"T","flags":131072}
{"session":1,"t":65.959,"type":"up","keyCode":17}
{"session":1,"t":66.1,"type":"correction","kind":"auto-nearby","original":"Teh","corrected":"The","wordIndex":0,"confidence":0.85}
{"session":1,"t":67.0,"type":"chip","index":2}
{"session":1,"t":68.0,"type":"reset"}
{"session":1,"t":70.5,"type":"done","text":"The quick"}
{"session":2,"t":71.0,"type":"flags","keyCode":61,"flags":524288}
{"session":2,"t":71.0,"type":"correction","kind":"cycle","original":"a","corrected":"b","wordIndex":null,"confidence":0.0}
{"session":2,"t":72.0,"type":"down","keyCode":57,"flags":65536}
)";
  EXPECT_EQ(formatStudyRecording(parseStudyRecording(contents, "study.jsonl")), contents);
}

TEST(StudyRecording, ReadsAHeaderThatKnowsLittle) {
  const auto recording = parseStudyRecording(
      R"({"recording":2,"program":"0.2.0","data":null,"prompts":["",""],"sessions":[]})",
      "study.jsonl");
  EXPECT_FALSE(recording.header.data);
  EXPECT_FALSE(recording.header.settings.allowList);
  EXPECT_TRUE(recording.header.sessions.empty());
}

TEST(StudyRecording, ReplacesWhatIsNotUtf8) {
  StudyEvent event{1, {.kind = RecordedEvent::Kind::down, .text = "a\xFF"}};
  EXPECT_THAT(formatStudyEvent(event), HasSubstr("\"a\xEF\xBF\xBD\""));
}

TEST(StudyRecording, NamesWhatItDoesNotKnow) {
  struct Row {
    std::string contents;
    const char* error;
  };
  const Row rows[] = {
      {"\n", "study.jsonl:1: the recording is empty"},
      {R"({"session":1})", "study.jsonl:1: \"recording\" is missing"},
      {with(header, ":2", ":3"), "study.jsonl:1: \"recording\" is not"},
      {with(header, "\"layout\"", "\"keyboard\""), "study.jsonl:1: unknown field \"keyboard\""},
      {with(header, "\"allowList\"", "\"allowed\""), "study.jsonl:1: unknown field \"allowed\""},
      {with(header, "\"lastKey\"", "\"last\""), "study.jsonl:1: unknown field \"last\""},
      {with(header, "\"The quick\",", ""), "\"prompts\" is not a list of two texts"},
      {with(header, "T20:10:58.123Z", ""), "\"start\" is not an instant"},
      {with(header, session1 + ",", session2 + ","), "\"sessions\" does not name session 1"},
      {with(header, "204.2", "-1"), "\"end\" is not a number of seconds"},
      {header + "\n{\"t\":1,\"type\":\"reset\"}", "study.jsonl:3: \"session\" is missing"},
      {header + R"({"session":3,"t":1,"type":"reset"})", "study.jsonl:2: \"session\" is not"},
      {header + R"({"session":1,"t":1,"type":"jump"})", ":2: unknown event type \"jump\""},
      {header + R"({"session":1,"t":1,"type":"up","keyCode":1,"text":"a"})",
       ":2: unknown field \"text\""},
      {header + R"({"session":1,"t":1,"type":"done"})", "\"text\" is missing"},
      {header + R"({"session":1,"t":1,"type":"correction","kind":"auto","original":"a",)" +
           R"("corrected":"b","confidence":1})",
       "unknown kind of correction \"auto\""},
      {header + R"({"session":1,"t":1,"type":"correction","kind":"manual","original":"a",)" +
           R"("corrected":"b","confidence":1.5})",
       "\"confidence\" is not a number from 0 to 1"},
  };
  for (const auto& row : rows) EXPECT_THAT(errorOf(row.contents), HasSubstr(row.error));
}

}  // namespace
}  // namespace mirvane
