// A window with one text field of Qt: qt-field text|password

#include <QApplication>
#include <QLineEdit>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QLineEdit field;
  field.setWindowTitle(QStringLiteral("Field of Qt"));
  if (QApplication::arguments().value(1) == QLatin1String("password")) {
    field.setEchoMode(QLineEdit::Password);
  }
  field.resize(400, field.sizeHint().height());
  field.show();
  return QApplication::exec();
}
