#include "platform/linux/qt_text_element.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>

namespace mirvane {
namespace {

int clamped(std::int64_t position, int length) {
  return static_cast<int>(std::clamp<std::int64_t>(position, 0, length));
}

/// A text edit's or plain text edit's document. Only the range asked for is copied out of it.
template <typename Edit>
class DocumentElement : public AccessibilityElement {
 public:
  explicit DocumentElement(Edit* edit) : edit_(edit) {}

  [[nodiscard]] std::optional<std::int64_t> textLength() const override {
    if (edit_.isNull()) return std::nullopt;
    return length();
  }

  [[nodiscard]] std::optional<std::u16string> text(Utf16Range range) const override {
    if (edit_.isNull()) return std::nullopt;
    QTextCursor cursor(edit_->document());
    cursor.setPosition(clamped(range.location, length()));
    cursor.setPosition(clamped(range.location + range.length, length()), QTextCursor::KeepAnchor);
    QString text = cursor.selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return text.toStdU16String();
  }

  [[nodiscard]] std::optional<Utf16Range> selectedTextRange() const override {
    if (edit_.isNull()) return std::nullopt;
    const QTextCursor cursor = edit_->textCursor();
    return Utf16Range{cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
  }

  void setSelectedTextRange(Utf16Range range) override {
    if (edit_.isNull()) return;
    QTextCursor cursor = edit_->textCursor();
    cursor.setPosition(clamped(range.location, length()));
    cursor.setPosition(clamped(range.location + range.length, length()), QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
  }

  void setSelectedText(std::string_view text) override {
    if (edit_.isNull() || edit_->isReadOnly()) return;
    QTextCursor cursor = edit_->textCursor();
    cursor.beginEditBlock();
    cursor.insertText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    cursor.endEditBlock();
    edit_->setTextCursor(cursor);
  }

 private:
  /// The document ends with a separator that is not part of its text.
  [[nodiscard]] int length() const { return edit_->document()->characterCount() - 1; }

  QPointer<Edit> edit_;
};

class LineElement : public AccessibilityElement {
 public:
  explicit LineElement(QLineEdit* edit) : edit_(edit) {}

  [[nodiscard]] std::optional<std::int64_t> textLength() const override {
    if (!isReadable()) return std::nullopt;
    return edit_->text().size();
  }

  [[nodiscard]] std::optional<std::u16string> text(Utf16Range range) const override {
    if (!isReadable()) return std::nullopt;
    return edit_->text().mid(range.location, range.length).toStdU16String();
  }

  [[nodiscard]] std::optional<Utf16Range> selectedTextRange() const override {
    if (!isReadable()) return std::nullopt;
    if (!edit_->hasSelectedText()) return Utf16Range{edit_->cursorPosition(), 0};
    return Utf16Range{edit_->selectionStart(), edit_->selectionLength()};
  }

  void setSelectedTextRange(Utf16Range range) override {
    if (!isReadable()) return;
    const int length = static_cast<int>(edit_->text().size());
    const int start = clamped(range.location, length);
    const int end = clamped(range.location + range.length, length);
    if (start == end) {
      edit_->setCursorPosition(start);
    } else {
      edit_->setSelection(start, end - start);
    }
  }

  void setSelectedText(std::string_view text) override {
    if (!isReadable() || edit_->isReadOnly()) return;
    edit_->insert(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  }

 private:
  [[nodiscard]] bool isReadable() const {
    return !edit_.isNull() && edit_->echoMode() == QLineEdit::Normal;
  }

  QPointer<QLineEdit> edit_;
};

}  // namespace

std::shared_ptr<AccessibilityElement> makeQtTextElement(QWidget* widget) {
  if (auto* const plain = qobject_cast<QPlainTextEdit*>(widget)) {
    return std::make_shared<DocumentElement<QPlainTextEdit>>(plain);
  }
  if (auto* const rich = qobject_cast<QTextEdit*>(widget)) {
    return std::make_shared<DocumentElement<QTextEdit>>(rich);
  }
  if (auto* const line = qobject_cast<QLineEdit*>(widget)) {
    return std::make_shared<LineElement>(line);
  }
  return nullptr;
}

}  // namespace mirvane
