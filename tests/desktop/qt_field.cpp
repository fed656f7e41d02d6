// A window with a text field of Qt that shows a file: qt-field [OPTION...] FILE

#include <QAction>
#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace {

void addOptions(QCommandLineParser& parser) {
  parser.addOptions({{QStringLiteral("user-name"), QStringLiteral("A field for it above.")},
                     {QStringLiteral("password"), QStringLiteral("F2 or its icon shows it.")},
                     {QStringLiteral("max-length"), QStringLiteral("The most characters."),
                      QStringLiteral("characters")}});
}

QString contentsOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void hide(QLineEdit& field) {
  field.setEchoMode(QLineEdit::Password);
  auto* const show = field.addAction(field.style()->standardIcon(QStyle::SP_FileDialogContentsView),
                                     QLineEdit::TrailingPosition);
  show->setShortcut(Qt::Key_F2);
  QObject::connect(show, &QAction::triggered, &field,
                   [&field] { field.setEchoMode(QLineEdit::Normal); });
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QCommandLineParser parser;
  addOptions(parser);
  parser.process(application);

  QWidget window;
  window.setWindowTitle(QStringLiteral("Field of Qt"));
  QLineEdit userName, field;
  QVBoxLayout form(&window);
  if (parser.isSet(QStringLiteral("user-name"))) form.addWidget(&userName);
  form.addWidget(&field);
  if (parser.isSet(QStringLiteral("max-length"))) {
    field.setMaxLength(parser.value(QStringLiteral("max-length")).toInt());
  }
  field.setText(contentsOf(parser.positionalArguments().value(0)));
  if (parser.isSet(QStringLiteral("password"))) hide(field);
  window.resize(400, window.sizeHint().height());
  window.show();
  return QApplication::exec();
}
