#include "views/study_problem_view.h"

#include <utility>

#include "views/bar.h"
#include "views/divider.h"
#include "views/layouts.h"
#include "views/mirvane_primary_button.h"
#include "views/scroll_column.h"
#include "views/section_heading.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

StudyProblemView::StudyProblemView(const QStringList& problems, std::function<void()> onClose,
                                   QWidget* parent)
    : QWidget(parent) {
  auto* const scroll = new ScrollColumn(14, this);
  auto& texts = scroll->column();
  texts.addWidget(new SectionHeading(tr("This study cannot begin"),
                                     QStringLiteral("exclamationmark.triangle.fill"), {}, this));
  texts.addWidget(new TextLabel(
      tr("Its settings are damaged. Please tell the study team. Nothing has been lost."), 15,
      QFont::Normal, theme::Tone::primary, this));
  for (const auto& problem : problems) {
    auto* const label = new TextLabel(problem, 13, QFont::Normal, theme::Tone::secondary, this);
    label->setObjectName(QStringLiteral("studyProblem"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    texts.addWidget(label);
  }
  texts.addStretch(1);

  auto* const bar = new Bar(this);
  auto* const close = new MirvanePrimaryButton(tr("Close"), QStringLiteral("checkmark"),
                                               theme::deep(), std::move(onClose), bar);
  close->setObjectName(QStringLiteral("closeButton"));
  auto* const barColumn = makeColumn(0, bar);
  barColumn->setContentsMargins(24, 16, 24, 16);
  barColumn->addWidget(close);

  auto* const column = makeColumn(0, this);
  column->addWidget(scroll, 1);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(bar);
  setFocusProxy(close);
}

}  // namespace mirvane
