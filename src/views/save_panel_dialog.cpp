#include "views/save_panel_dialog.h"

#include <QDir>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "files/save_target.h"
#include "views/bordered_button.h"
#include "views/field_frame.h"
#include "views/layouts.h"
#include "views/press_guard.h"
#include "views/replace_question.h"
#include "views/study_dialog.h"
#include "views/text_label.h"
#include "views/theme.h"
#include "views/window_frame.h"

namespace mirvane {
namespace {

constexpr QSize comfortableSize(600, 560);
constexpr QSize smallestSize(320, 300);
constexpr int rowHeight = 48;
constexpr int controlGap = 16;
constexpr int folderRole = Qt::UserRole;

QString shown(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

}  // namespace

SavePanelDialog::SavePanelDialog(const SavePanel::Options& options,
                                 const std::filesystem::path& folder, QWidget* parent)
    : QDialog(parent),
      folderLabel_(new TextLabel({}, 13, QFont::Normal, theme::Tone::secondary, this)),
      folders_(new QListWidget(this)),
      name_(new QLineEdit(this)) {
  const QString message = QString::fromStdString(options.message);
  setObjectName(QStringLiteral("savePanel"));
  setWindowModality(Qt::WindowModal);
  setWindowTitle(message);
  setAccessibleName(message);
  folderLabel_->setObjectName(QStringLiteral("saveFolder"));
  folders_->setObjectName(QStringLiteral("saveFolders"));
  folders_->setAccessibleName(tr("Folders to change into"));
  folders_->setFont(theme::font(15));
  connect(folders_, &QListWidget::itemClicked, this,
          [this](const QListWidgetItem* row) { enterClicked(*row); });

  // In reading order, which is also that of the Tab key.
  auto* const column = makeColumn(controlGap, this);
  column->setContentsMargins(24, 20, 24, 24);
  column->addWidget(new TextLabel(message, 18, QFont::Bold, theme::Tone::primary, this));
  column->addWidget(folderLabel_);
  column->addWidget(folders_, 1);
  column->addWidget(makeNameField(QString::fromStdString(options.suggestedFileName)));
  column->addLayout(makeButtons(QString::fromStdString(options.prompt)));
  showFolder(folder);
  name_->setFocus();
}

QWidget* SavePanelDialog::makeNameField(const QString& suggestion) {
  constexpr int fieldHeight = 48;
  name_->setObjectName(QStringLiteral("saveName"));
  name_->setAccessibleName(tr("File name"));
  name_->setFont(theme::font(15));
  name_->setFrame(false);
  name_->setText(suggestion);
  name_->selectAll();
  connect(name_, &QLineEdit::textChanged, this,
          [this](const QString& text) { save_->setEnabled(!text.trimmed().isEmpty()); });
  auto* const holder = new QWidget(this);
  auto* const frame = new FieldFrame(name_, theme::deep(), holder);
  frame->setMinimumHeight(fieldHeight);
  auto* const column = makeColumn(6, holder);
  column->addWidget(
      new TextLabel(tr("File name"), 13, QFont::DemiBold, theme::Tone::primary, holder));
  column->addWidget(frame);
  return holder;
}

QLayout* SavePanelDialog::makeButtons(const QString& prompt) {
  auto* const row = makeRow(controlGap);
  const auto add = [&](const QString& text, const char* name, const QColor& tint) {
    constexpr int buttonHeight = 50;
    auto* const button = new BorderedButton(text, tint, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    button->setFixedHeight(buttonHeight);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(button, 1);
    return button;
  };
  save_ = add(prompt, "savePanelSave", theme::deep());
  connect(save_, &QPushButton::clicked, this, &SavePanelDialog::save);
  connect(add(tr("Cancel"), "savePanelCancel", {}), &QPushButton::clicked, this, &QDialog::reject);
  return row;
}

void SavePanelDialog::showFolder(const std::filesystem::path& folder) {
  folder_ = folder;
  folderLabel_->setText(tr("Folder: %1").arg(shown(folder)));
  folders_->clear();
  const QDir directory(shown(folder));
  const auto parent = folder.parent_path();
  if (parent != folder) addRow(tr("Up to %1").arg(shown(parent)), parent);
  for (const auto& name :
       directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)) {
    addRow(name, folder / name.toStdString());
  }
  folders_->setCurrentRow(0);
  sinceFolderChange_.start();
}

void SavePanelDialog::addRow(const QString& text, const std::filesystem::path& folder) {
  auto* const row = new QListWidgetItem(text, folders_);
  row->setData(folderRole, shown(folder));
  row->setSizeHint({0, rowHeight});
}

void SavePanelDialog::enterClicked(const QListWidgetItem& row) {
  // The rest of a double click was not meant for the row that stands there now.
  constexpr qint64 slowDoubleClick = 1000;
  if (sinceFolderChange_.elapsed() >= slowDoubleClick) enter(row);
}

void SavePanelDialog::enter(const QListWidgetItem& row) {
  showFolder(row.data(folderRole).toString().toStdString());
}

void SavePanelDialog::showEvent(QShowEvent* event) {
  const QSize room = roomOnScreen(*this);
  setMinimumSize(smallestSize.boundedTo(room));
  resize(comfortableSize.boundedTo(room));
  QDialog::showEvent(event);
  guardPresses(*this);
}

void SavePanelDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return QDialog::keyPressEvent(event);
  if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || event->isAutoRepeat()) {
    return;
  }
  if (folders_->hasFocus() && folders_->currentItem() != nullptr) enter(*folders_->currentItem());
  if (name_->hasFocus() && save_->isReady()) save();
}

void SavePanelDialog::save() {
  const auto target = saveTarget(folder_, name_->text().toStdString());
  switch (target.kind) {
    case SaveTarget::Kind::nothing:
      return;
    case SaveTarget::Kind::folder:
      name_->clear();
      return showFolder(target.path);
    case SaveTarget::Kind::newFile:
      return choose(target.path);
    case SaveTarget::Kind::existingFile:
      return askToReplace(target.path);
  }
}

void SavePanelDialog::choose(const std::filesystem::path& path) {
  chosen_ = path;
  accept();
}

void SavePanelDialog::askToReplace(const std::filesystem::path& path) {
  makeReplaceQuestion(path, this, [this, path] { choose(path); })->open();
}

}  // namespace mirvane
