#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simulated/scripted_lexical_tagger.h"
#include "platform/simulated/scripted_spell_checker.h"
#include "platform/simulated/scripted_word_embedding.h"
#include "recording/recorded_event.h"
#include "recording/recording_lines.h"
#include "recording/study_recording.h"

namespace mirvane {

/// English that a recording brings along. It is all the English there is then: a look-up that is
/// missing answers nothing.
struct RecordedLanguage {
  using Weights = std::map<std::string, double, std::less<>>;

  simulated::ScriptedSpellChecker::Script words;
  Weights unigrams;
  Weights bigrams;
  simulated::ScriptedLexicalTagger::Tags tags;
  simulated::ScriptedWordEmbedding::Distances distances;
  bool hasEmbedding = true;
};

struct RecordedField {
  enum class Kind { normal, ignoresWrites, noAccessibility, password };

  std::string text;
  std::optional<std::int64_t> caret;  ///< UTF-16 units; the end of the text when absent
  Kind kind = Kind::normal;
};

/// A typed session: what was asked, what was typed, and whatever differs from the defaults.
struct Recording {
  std::int64_t session = 1;  ///< 1 or 2
  std::string prompt;
  /// The content of the typing parameters resource; the inner absence means there is none.
  std::optional<std::optional<std::string>> parameters;
  /// Absent: the shipped English.
  std::optional<RecordedLanguage> language;
  RecordedSettings settings;
  RecordedField field;
  std::optional<double> end;  ///< seconds at which the session is frozen
  std::vector<RecordedEvent> events;

  /// `end` or, without one, the time of the last event.
  [[nodiscard]] double endTime() const;
};

/// Reads a recording: JSON Lines, a header and one event a line. Blank lines are skipped. Throws a
/// `RecordingError` for a file that cannot be read or the first line that is damaged.
[[nodiscard]] Recording readRecording(const std::filesystem::path& file);

/// The same from a text; `name` stands for the file in messages.
[[nodiscard]] Recording parseRecording(std::string_view contents, std::string_view name);

}  // namespace mirvane
