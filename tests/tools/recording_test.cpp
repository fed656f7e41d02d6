#include "recording/recording.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "recording/recording_writer.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Kind = RecordedEvent::Kind;

constexpr const char* header = R"({"recording":1,"session":1,"prompt":"Hi"})";

std::string withEvents(const std::string& lines) {
  return std::string(header) + "\n" + lines;
}

std::string errorOf(const std::string& contents) {
  try {
    static_cast<void>(parseRecording(contents, "typed.jsonl"));
  } catch (const RecordingError& error) {
    return error.what();
  }
  return "no error";
}

TEST(Recording, ReadsEveryKindOfEvent) {
  const auto recording =
      parseRecording(withEvents(R"({"t":0.5,"type":"down","keyCode":4,"text":"h","flags":131072}
{"t":0.6,"type":"up","keyCode":4}
{"t":1,"type":"flags","keyCode":61,"flags":524288}

{"t":1.5,"type":"pointer"}
{"t":2,"type":"activate","app":"org.editor"}
{"t":2.5,"type":"chip","index":2}
{"t":3,"type":"reset"}
{"t":4,"type":"done"}
)"),
                     "typed.jsonl");
  std::vector<Kind> kinds;
  for (const auto& event : recording.events) kinds.push_back(event.kind);
  EXPECT_THAT(kinds, ElementsAre(Kind::down, Kind::up, Kind::flags, Kind::pointer, Kind::activate,
                                 Kind::chip, Kind::reset, Kind::done));
  EXPECT_EQ(recording.events[0].text, "h");
  EXPECT_EQ(recording.events[0].flags, 0x20000u);
  EXPECT_EQ(recording.events[2].keyCode, 61);
  EXPECT_EQ(recording.events[4].app, "org.editor");
  EXPECT_EQ(recording.events[5].index, 2u);
  EXPECT_EQ(recording.endTime(), 4);
}

TEST(Recording, ReadsWhatItBringsAlong) {
  const auto recording =
      parseRecording(R"({"recording":1,"session":2,"prompt":"","end":90,"parameters":null,)"
                     R"("language":{"known":["a"],"tags":{"to":"Preposition"},"embedding":false},)"
                     R"("settings":{"allowList":["helo"],"frontmost":"org.app"},)"
                     R"("field":{"text":"x 😀","caret":2,"kind":"password"}})",
                     "typed.jsonl");
  EXPECT_EQ(recording.session, 2);
  EXPECT_EQ(recording.endTime(), 90);
  ASSERT_TRUE(recording.parameters);
  EXPECT_FALSE(recording.parameters->has_value());
  ASSERT_TRUE(recording.language);
  EXPECT_TRUE(recording.language->words.known.contains("a"));
  EXPECT_EQ(recording.language->tags.at("to"), LexicalClass::preposition);
  EXPECT_FALSE(recording.language->hasEmbedding);
  EXPECT_THAT(*recording.settings.allowList, ElementsAre("helo"));
  EXPECT_EQ(recording.settings.frontmost, "org.app");
  EXPECT_FALSE(recording.settings.isAutoCorrectionEnabled);
  EXPECT_EQ(recording.field.text, "x 😀");
  EXPECT_EQ(recording.field.caret, 2);
  EXPECT_EQ(recording.field.kind, RecordedField::Kind::password);
}

TEST(Recording, NamesFileAndLineOfTheDamage) {
  struct Row {
    const char* contents;
    const char* error;
  };
  const Row rows[] = {
      {"", "typed.jsonl:1: the recording is empty"},
      {"{}", "typed.jsonl:1: not the first line of a recording"},
      {"[1]", "typed.jsonl:1: not a JSON object"},
      {R"({"recording":2,"session":1,"prompt":""})", "typed.jsonl:1: \"recording\" is not"},
      {R"({"recording":1,"session":3,"prompt":""})", "typed.jsonl:1: \"session\" is not"},
      {R"({"recording":1,"session":1})", "typed.jsonl:1: \"prompt\" is missing"},
      {R"({"recording":1,"session":1,"prompt":"","field":{"kind":"round"}})", "unknown kind"},
      {R"({"recording":1,"session":1,"prompt":"","parameters":[]})", "\"parameters\" is not"},
      {R"({"recording":1,"session":1,"prompt":"","language":{"known":[1]}})", "\"known\" is not"},
  };
  for (const auto& row : rows) EXPECT_THAT(errorOf(row.contents), HasSubstr(row.error));
}

TEST(Recording, NamesTheDamagedEvent) {
  struct Row {
    const char* line;
    const char* error;
  };
  const Row rows[] = {
      {R"({"t":1,"type":"down","keyCode":4)", "not valid JSON"},
      {R"({"type":"reset"})", "\"t\" is missing"},
      {R"({"t":"1","type":"reset"})", "\"t\" is not a number"},
      {R"({"t":true,"type":"reset"})", "\"t\" is not a number"},
      {R"({"t":1,"type":"jump"})", "unknown event type \"jump\""},
      {R"({"t":1,"type":"down","text":"a"})", "\"keyCode\" is missing"},
      {R"({"t":1,"type":"up","keyCode":65536})", "\"keyCode\" is not a whole number"},
      {R"({"t":1,"type":"up","keyCode":2.5})", "\"keyCode\" is not a whole number"},
      {R"({"t":1,"type":"chip","index":-1})", "\"index\" is not a whole number"},
      {R"({"t":1,"type":"activate"})", "\"app\" is missing"},
  };
  for (const auto& row : rows) {
    const auto error = errorOf(withEvents(R"({"t":0,"type":"reset"})"
                                          "\n" +
                                          std::string(row.line)));
    EXPECT_THAT(error, HasSubstr("typed.jsonl:3: "));
    EXPECT_THAT(error, HasSubstr(row.error));
  }
}

TEST(Recording, ComesBackAsItWasWritten) {
  const std::string contents =
      withEvents(R"({"t":0.123,"type":"down","keyCode":0,"text":"é😀","flags":0}
{"t":0.2,"type":"down","keyCode":57,"flags":65536}
{"t":0.3,"type":"up","keyCode":0}
{"t":1.0,"type":"flags","keyCode":61,"flags":524288}
{"t":1.5,"type":"chip","index":0}
{"t":2.0,"type":"activate","app":"a \"b\""}
{"t":2.5,"type":"done"}
)");
  EXPECT_EQ(formatRecording(parseRecording(contents, "typed.jsonl")), contents);
}

}  // namespace
}  // namespace mirvane
