#include "platform/linux/qt_text_element.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <memory>

namespace mirvane {
namespace {

/// The same view of the three kinds of text fields.
struct Field {
  virtual ~Field() = default;
  virtual QWidget* widget() = 0;
  virtual QString text() = 0;
  virtual void undo() = 0;
  virtual int* changes() = 0;
};

template <typename Edit>
struct FieldOf : Field {
  explicit FieldOf(const QString& content) {
    if constexpr (isLine) {
      edit.insert(content);
    } else {
      edit.insertPlainText(content);
    }
    QObject::connect(&edit, &Edit::textChanged, [this] { ++count; });
  }
  QWidget* widget() override { return &edit; }
  QString text() override {
    if constexpr (isLine)
      return edit.text();
    else
      return edit.toPlainText();
  }
  void undo() override { edit.undo(); }
  int* changes() override { return &count; }

  static constexpr bool isLine = std::is_same_v<Edit, QLineEdit>;
  Edit edit;
  int count = 0;
};

using Make = std::unique_ptr<Field> (*)(const QString&);

template <typename Kind>
std::unique_ptr<Field> make(const QString& content) {
  return std::make_unique<Kind>(content);
}

class TextElement : public ::testing::TestWithParam<Make> {};

INSTANTIATE_TEST_SUITE_P(EveryField, TextElement,
                         ::testing::Values(make<FieldOf<QPlainTextEdit>>, make<FieldOf<QTextEdit>>,
                                           make<FieldOf<QLineEdit>>));

TEST_P(TextElement, ReadsRangesInUtf16Units) {
  const auto field = GetParam()(QStringLiteral("a 😀 é word"));
  const auto element = makeQtTextElement(field->widget());
  ASSERT_NE(element, nullptr);
  EXPECT_EQ(element->textLength(), 11);
  EXPECT_EQ(element->text({2, 2}), u"😀");
  EXPECT_EQ(element->text({7, 4}), u"word");
  EXPECT_EQ(element->text({11, 0}), u"");
  EXPECT_EQ(element->selectedTextRange(), (Utf16Range{11, 0}));
}

TEST_P(TextElement, ReplacesAWordInOneUndoStepAndPlacesTheCaret) {
  const auto field = GetParam()(QStringLiteral("say helo "));
  const auto element = makeQtTextElement(field->widget());
  element->setSelectedTextRange({4, 4});
  EXPECT_EQ(element->selectedTextRange(), (Utf16Range{4, 4}));
  *field->changes() = 0;
  element->setSelectedText("hello");
  EXPECT_EQ(*field->changes(), 1);
  element->setSelectedTextRange({10, 0});
  EXPECT_EQ(field->text(), QStringLiteral("say hello "));
  EXPECT_EQ(element->selectedTextRange(), (Utf16Range{10, 0}));
  field->undo();
  EXPECT_EQ(field->text(), QStringLiteral("say helo "));
}

TEST_P(TextElement, ClampsRangesToTheText) {
  const auto field = GetParam()(QStringLiteral("abc"));
  const auto element = makeQtTextElement(field->widget());
  element->setSelectedTextRange({1, 100});
  EXPECT_EQ(element->selectedTextRange(), (Utf16Range{1, 2}));
  element->setSelectedTextRange({100, 0});
  EXPECT_EQ(element->selectedTextRange(), (Utf16Range{3, 0}));
}

TEST_P(TextElement, AnswersNothingOnceTheFieldIsGone) {
  auto field = GetParam()(QStringLiteral("abc"));
  const auto element = makeQtTextElement(field->widget());
  field.reset();
  element->setSelectedTextRange({0, 1});
  element->setSelectedText("x");
  EXPECT_EQ(element->textLength(), std::nullopt);
  EXPECT_EQ(element->text({0, 1}), std::nullopt);
  EXPECT_EQ(element->selectedTextRange(), std::nullopt);
}

TEST(TextElementKinds, ShowsLineEndsAsLineFeeds) {
  FieldOf<QPlainTextEdit> field(QStringLiteral("one\ntwo"));
  EXPECT_EQ(makeQtTextElement(field.widget())->text({0, 7}), u"one\ntwo");
}

TEST(TextElementKinds, KeepsPasswordsToItself) {
  FieldOf<QLineEdit> field(QStringLiteral("secret"));
  for (const auto mode : {QLineEdit::Password, QLineEdit::NoEcho}) {
    field.edit.setEchoMode(mode);
    const auto element = makeQtTextElement(field.widget());
    EXPECT_EQ(element->textLength(), std::nullopt);
    EXPECT_EQ(element->text({0, 6}), std::nullopt);
    element->setSelectedText("x");
    EXPECT_EQ(field.edit.text(), QStringLiteral("secret"));
  }
}

TEST(TextElementKinds, LeavesReadOnlyFieldsAsTheyAre) {
  FieldOf<QLineEdit> line(QStringLiteral("fixed"));
  FieldOf<QPlainTextEdit> document(QStringLiteral("fixed"));
  line.edit.setReadOnly(true);
  document.edit.setReadOnly(true);
  for (Field* field : std::initializer_list<Field*>{&line, &document}) {
    const auto element = makeQtTextElement(field->widget());
    element->setSelectedTextRange({0, 5});
    element->setSelectedText("x");
    EXPECT_EQ(field->text(), QStringLiteral("fixed"));
  }
}

TEST(TextElementKinds, KnowsWhatIsNoText) {
  QLabel label(QStringLiteral("label"));
  EXPECT_EQ(makeQtTextElement(&label), nullptr);
  EXPECT_EQ(makeQtTextElement(nullptr), nullptr);
}

}  // namespace
}  // namespace mirvane
