#include "views/results_view.h"

#include <QUrl>
#include <utility>

#include "views/announcer.h"
#include "views/badge.h"
#include "views/bar.h"
#include "views/bordered_button.h"
#include "views/divider.h"
#include "views/first_focus.h"
#include "views/layouts.h"
#include "views/mirvane_page_header.h"
#include "views/mirvane_primary_button.h"
#include "views/rounded_card.h"
#include "views/scroll_column.h"
#include "views/scroll_keys.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {
namespace {

/// Lets a part of the text be selected and copied, by pointer and by key.
void makeCopyable(QLabel& label) {
  label.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label.setFocusPolicy(Qt::StrongFocus);
}

/// What is left to do, as the screen shows it and says it.
QString sendingInstruction(const QString& contactAddress) {
  return QObject::tr("Save the result file using the button below, then email the file to %1.")
      .arg(contactAddress);
}

}  // namespace

ResultsView::ResultsView(Inputs inputs, QWidget* parent)
    : QWidget(parent), inputs_(std::move(inputs)) {
  auto* const scroll = new ScrollColumn(14, this);
  scroll->column().addWidget(makeCompletionCard());
  scroll->column().addWidget(makeSavedPlace());
  scroll->column().addStretch(1);

  saveButton_ = new MirvanePrimaryButton(
      tr("Save Results…"), QStringLiteral("arrow.down.circle.fill"), theme::deep(),
      [this] { save(); }, this);
  saveButton_->setObjectName(QStringLiteral("saveButton"));
  saveButton_->setAccessibleDescription(tr("Asks where to save the result file"));
  auto* const buttonBar = new Bar(this);
  auto* const buttonColumn = makeColumn(0, buttonBar);
  buttonColumn->setContentsMargins(24, 16, 24, 16);
  buttonColumn->addWidget(saveButton_);

  auto* const column = makeColumn(0, this);
  column->addWidget(new MirvanePageHeader(tr("Results"), tr("Mirvane Beta · Typing Study"), this));
  column->addWidget(scroll, 1);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(buttonBar);
  scrollByKeys(*scroll, *saveButton_);
  giveFirstFocus(*this, *saveButton_);

  auto* const announcer = new Announcer(this, Announcer::afterTheFocus);
  announcer->announcements().say(tr("Test Complete"));
  announcer->announcements().say(sendingInstruction(inputs_.saver.contactAddress()));
}

QWidget* ResultsView::makeCompletionCard() {
  auto* const card = new RoundedCard({.color = theme::deep(),
                                      .endColor = theme::sky(),
                                      .fillOpacity = 0.08,
                                      .outlineOpacity = 0.18,
                                      .cornerRadius = 16},
                                     this);
  auto* const column = makeColumn(8, card);
  column->setContentsMargins(24, 28, 24, 28);
  column->addWidget(
      new Badge({.symbol = QStringLiteral("checkmark"), .side = 56, .pointSize = 28}, card), 0,
      Qt::AlignHCenter);
  const auto add = [&](const QString& text, int size, QFont::Weight weight, theme::Tone tone) {
    auto* const label = new TextLabel(text, size, weight, tone, card);
    label->setAlignment(Qt::AlignHCenter);
    column->addWidget(label);
    return label;
  };
  add(tr("Test Complete"), 20, QFont::Bold, theme::Tone::primary)->setHeading();
  add(tr("Thank you for participating in the Mirvane Beta test."), 13, QFont::Normal,
      theme::Tone::secondary);
  column->addSpacing(12);
  add(tr("Next steps"), 14, QFont::DemiBold, theme::Tone::primary)->setHeading();
  auto* const instruction = add(sendingInstruction(inputs_.saver.contactAddress()), 13,
                                QFont::Normal, theme::Tone::secondary);
  instruction->setObjectName(QStringLiteral("emailInstruction"));
  makeCopyable(*instruction);
  add(tr("The file is used only for improving Mirvane. We will notify you before any public "
         "release or data sharing."),
      13, QFont::Normal, theme::Tone::secondary);
  return card;
}

QWidget* ResultsView::makeSavedPlace() {
  savedPlace_ = new QWidget(this);
  savedLabel_ = new TextLabel({}, 13, QFont::Normal, theme::Tone::primary, savedPlace_);
  savedLabel_->setObjectName(QStringLiteral("savedPlace"));
  makeCopyable(*savedLabel_);
  openFailure_ = new TextLabel(tr("The folder could not be opened."), 13, QFont::Normal,
                               theme::Tone::warning, savedPlace_);
  openFailure_->hide();
  auto* const open = new BorderedButton(tr("Open Folder"), {}, savedPlace_);
  open->setObjectName(QStringLiteral("openFolderButton"));
  connect(open, &QPushButton::clicked, this, &ResultsView::openFolder);
  auto* const texts = makeColumn(4);
  texts->addWidget(savedLabel_);
  texts->addWidget(openFailure_);
  auto* const row = makeRow(16, savedPlace_);
  row->addLayout(texts, 1);
  row->addWidget(open, 0, Qt::AlignTop);
  savedPlace_->hide();
  return savedPlace_;
}

void ResultsView::openFolder() {
  const auto folder = QString::fromStdString(savedPath_.parent_path().string());
  const auto url = QUrl::fromLocalFile(folder).toString(QUrl::FullyEncoded);
  openFailure_->setVisible(!inputs_.workspace.openUrl(url.toStdString()));
}

void ResultsView::save() {
  if (const auto path = inputs_.saver.save(inputs_.snap1, inputs_.snap2, *this)) showSaved(*path);
}

void ResultsView::showSaved(const std::filesystem::path& path) {
  saveButton_->setLabel(tr("Saved ✓"), QStringLiteral("checkmark.circle.fill"),
                        theme::savedGreen());
  savedPath_ = path;
  savedLabel_->setText(tr("The result is saved as %1").arg(QString::fromStdString(path.string())));
  openFailure_->hide();
  savedPlace_->show();
}

}  // namespace mirvane
