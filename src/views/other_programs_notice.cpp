#include "views/other_programs_notice.h"

#include <QCoreApplication>

namespace mirvane {
namespace {

QString translated(const char* text) {
  return QCoreApplication::translate("mirvane::OtherProgramsNotice", text);
}

}  // namespace

QString otherProgramsNotice(OtherPrograms otherPrograms) {
  if (otherPrograms == OtherPrograms::leftAlone) {
    return translated(
        "Only what you type in this window is read, corrected and written into the report. "
        "What you type in other programs is left alone.");
  }
  return translated(
      "While a session is open, text typed in other programs is also read, corrected and "
      "written into the report. To avoid this, type only in this window.");
}

QString otherProgramsConsent(OtherPrograms otherPrograms) {
  const QString notice = otherProgramsNotice(otherPrograms);
  if (otherPrograms == OtherPrograms::leftAlone) return notice;
  return notice + QLatin1Char(' ') +
         translated(
             "It is safest to close other programs first. Password fields and terminals are "
             "always left out.");
}

}  // namespace mirvane
