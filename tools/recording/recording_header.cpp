#include "recording/recording_header.h"

#include <algorithm>
#include <array>

#include "text/letter_case.h"

namespace mirvane {
namespace {

constexpr std::int64_t formatVersion = 1;

constexpr std::array<std::pair<std::string_view, LexicalClass>, 6> lexicalClasses{
    {{"noun", LexicalClass::noun},
     {"verb", LexicalClass::verb},
     {"adjective", LexicalClass::adjective},
     {"pronoun", LexicalClass::pronoun},
     {"determiner", LexicalClass::determiner},
     {"preposition", LexicalClass::preposition}}};

RecordedLanguage::Weights weightsAt(const JsonFields& language, std::string_view name) {
  RecordedLanguage::Weights weights;
  const auto fields = language.object(name);
  if (!fields) return weights;
  fields->forEach([&](std::string_view key, const Json& value) {
    weights.insert_or_assign(std::string(key), numberOf(value, key));
  });
  return weights;
}

simulated::ScriptedSpellChecker::WordLists wordListsAt(const JsonFields& language,
                                                       std::string_view name) {
  simulated::ScriptedSpellChecker::WordLists lists;
  const auto fields = language.object(name);
  if (!fields) return lists;
  fields->forEach([&](std::string_view key, const Json& value) {
    lists.insert_or_assign(std::string(key), stringsOf(value, key));
  });
  return lists;
}

simulated::ScriptedLexicalTagger::Tags tagsAt(const JsonFields& language, std::string_view name) {
  simulated::ScriptedLexicalTagger::Tags tags;
  const auto fields = language.object(name);
  if (!fields) return tags;
  fields->forEach([&](std::string_view key, const Json& value) {
    tags.insert_or_assign(std::string(key), lexicalClassNamed(stringOf(value, key)));
  });
  return tags;
}

RecordedLanguage parseLanguage(const JsonFields& fields) {
  RecordedLanguage language;
  const auto known = fields.strings("known").value_or(std::vector<std::string>{});
  language.words.known.insert(known.begin(), known.end());
  language.words.guesses = wordListsAt(fields, "guesses");
  language.words.completions = wordListsAt(fields, "completions");
  language.unigrams = weightsAt(fields, "unigrams");
  language.bigrams = weightsAt(fields, "bigrams");
  language.tags = tagsAt(fields, "tags");
  language.distances = weightsAt(fields, "distances");
  language.hasEmbedding = fields.boolean("embedding").value_or(true);
  return language;
}

RecordedField::Kind fieldKindNamed(const std::string& name) {
  using Kind = RecordedField::Kind;
  if (name == "normal") return Kind::normal;
  if (name == "ignoresWrites") return Kind::ignoresWrites;
  if (name == "noAccessibility") return Kind::noAccessibility;
  if (name == "password") return Kind::password;
  throw std::runtime_error("unknown kind of field \"" + name + "\"");
}

RecordedField parseField(const JsonFields& fields) {
  RecordedField field;
  field.text = fields.string("text").value_or("");
  field.caret = fields.whole("caret", 0, INT64_MAX);
  field.kind = fieldKindNamed(fields.string("kind").value_or("normal"));
  return field;
}

std::optional<std::string> parseParameters(const Json& value) {
  if (value.is_null()) return std::nullopt;
  if (!value.is_object()) throw std::runtime_error("\"parameters\" is not an object or null");
  return value.dump();
}

}  // namespace

LexicalClass lexicalClassNamed(const std::string& name) {
  const auto lower = text::lowercased(name);
  const auto* const found = std::find_if(lexicalClasses.begin(), lexicalClasses.end(),
                                         [&](const auto& entry) { return entry.first == lower; });
  return found == lexicalClasses.end() ? LexicalClass::other : found->second;
}

Recording parseRecordingHeader(const JsonFields& fields) {
  if (fields.find("recording") == nullptr) {
    throw std::runtime_error("not the first line of a recording");
  }
  Recording recording;
  static_cast<void>(required(fields.whole("recording", formatVersion, formatVersion), "recording"));
  recording.session = required(fields.whole("session", 1, 2), "session");
  recording.prompt = required(fields.string("prompt"), "prompt");
  if (const auto* const value = fields.find("parameters"))
    recording.parameters = parseParameters(*value);
  if (const auto language = fields.object("language"))
    recording.language = parseLanguage(*language);
  if (const auto settings = fields.object("settings"))
    recording.settings = parseRecordedSettings(*settings);
  if (const auto field = fields.object("field")) recording.field = parseField(*field);
  recording.end = fields.seconds("end");
  return recording;
}

}  // namespace mirvane
