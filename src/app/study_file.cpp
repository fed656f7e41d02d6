#include "app/study_file.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <stdexcept>

#include "session/study_words.h"

namespace mirvane {
namespace {

/// What is wrong with the file, for its author.
class Damage : public std::runtime_error {
 public:
  explicit Damage(const QString& text) : std::runtime_error(text.toStdString()) {}
};

QString tr(const char* text) {
  return QCoreApplication::translate("StudyFile", text);
}

void readSwitch(const QJsonValue& value, const QString& name, bool& isOn) {
  if (!value.isBool()) throw Damage(tr("\"%1\" must be true or false").arg(name));
  isOn = value.toBool();
}

QString readText(const QJsonValue& value, const QString& name) {
  if (!value.isString()) throw Damage(tr("\"%1\" must be a text").arg(name));
  return value.toString();
}

bool isControl(QChar character) {
  return character.category() == QChar::Other_Control ||
         character.category() == QChar::Separator_Line ||
         character.category() == QChar::Separator_Paragraph;
}

QString readAddress(const QJsonValue& value, const QString& name) {
  auto address = readText(value, name);
  const bool isAddress = address.indexOf(u'@') > 0 && !address.endsWith(u'@') &&
                         std::none_of(address.begin(), address.end(), [](QChar character) {
                           return character.isSpace() || isControl(character);
                         });
  if (!isAddress) throw Damage(tr("\"%1\" must be an e-mail address").arg(name));
  return address;
}

/// A prompt is one line of the report and has words to be typed.
std::string readPrompt(const QJsonValue& value) {
  constexpr qsizetype mostUnits = 2000;
  const auto prompt = value.toString().trimmed();
  const bool isLine = value.isString() && prompt.size() <= mostUnits &&
                      std::none_of(prompt.begin(), prompt.end(), isControl);
  auto text = prompt.toStdString();
  if (!isLine || studyWords(text).empty()) {
    throw Damage(tr("a prompt must be one line of text with words in it, %1 characters at the most")
                     .arg(mostUnits));
  }
  return text;
}

std::array<std::string, 2> readPrompts(const QJsonValue& value) {
  const auto prompts = value.toArray();
  if (prompts.size() != 2) {
    throw Damage(tr("\"prompts\" must be a list of two texts, for session 1 and session 2"));
  }
  return {readPrompt(prompts.at(0)), readPrompt(prompts.at(1))};
}

std::string readParticipant(const QJsonValue& value, const QString& name) {
  auto code = readText(value, name).toStdString();
  if (!code.empty() && !isParticipantCode(code)) {
    throw Damage(tr("\"%1\" must be letters and digits, with . _ - between them").arg(name));
  }
  return code;
}

void readField(const QString& name, const QJsonValue& value, StudyConfiguration& study) {
  if (name == QLatin1String("contactAddress")) {
    study.contactAddress = readAddress(value, name);
  } else if (name == QLatin1String("prompts")) {
    study.prompts = readPrompts(value);
  } else if (name == QLatin1String("participant")) {
    study.participant = readParticipant(value, name);
  } else if (name == QLatin1String("keepSessionRecord")) {
    readSwitch(value, name, study.keepsSessionRecord);
  } else if (name == QLatin1String("watchOtherPrograms")) {
    readSwitch(value, name, study.watchesOtherPrograms);
  } else if (name == QLatin1String("keepUnsavedStudy")) {
    readSwitch(value, name, study.keepsUnsavedStudy);
  } else if (name == QLatin1String("automaticCorrection")) {
    readSwitch(value, name, study.correctsAutomatically);
  } else if (name != QLatin1String("$schema")) {
    throw Damage(tr("\"%1\" is not known here").arg(name));
  }
}

QJsonObject parse(std::string_view json) {
  const QByteArray bytes(json.data(), static_cast<qsizetype>(json.size()));
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(bytes, &error);
  if (error.error != QJsonParseError::NoError) {
    throw Damage(
        tr("line %1: %2").arg(bytes.left(error.offset).count('\n') + 1).arg(error.errorString()));
  }
  if (!document.isObject()) throw Damage(tr("is not a JSON object"));
  return document.object();
}

/// Editors of other systems put one before the text.
std::string_view withoutByteOrderMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
  return text;
}

}  // namespace

std::optional<QString> applyStudyFile(std::string_view json, StudyConfiguration& study) {
  try {
    const auto fields = parse(withoutByteOrderMark(json));
    StudyConfiguration changed = study;
    for (auto field = fields.begin(); field != fields.end(); ++field) {
      readField(field.key(), field.value(), changed);
    }
    study = std::move(changed);
    return std::nullopt;
  } catch (const Damage& damage) {
    return QString::fromUtf8(damage.what());
  }
}

bool isParticipantCode(std::string_view code) {
  constexpr std::size_t most = 64;
  const auto isWordCharacter = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  };
  return !code.empty() && code.size() <= most && isWordCharacter(code.front()) &&
         isWordCharacter(code.back()) && std::all_of(code.begin(), code.end(), [&](char c) {
           return isWordCharacter(c) || c == '.' || c == '_' || c == '-';
         });
}

}  // namespace mirvane
