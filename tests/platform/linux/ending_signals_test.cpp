#include "platform/linux/ending_signals.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <csignal>
#include <functional>
#include <vector>

namespace mirvane {
namespace {

/// How a process of its own ends that does this and then exits with 0.
int endOf(const std::function<void()>& work) {
  const auto child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST(EndingSignals, AreToldOnTheMainThread) {
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    EndingSignals signals;
    std::vector<int> arrived;
    QObject::connect(&signals, &EndingSignals::arrived, [&](int told) { arrived.push_back(told); });
    raise(number);
    EXPECT_TRUE(arrived.empty()) << "nothing is done in the handler";
    QCoreApplication::processEvents();
    EXPECT_EQ(arrived, std::vector<int>{number});
  }
}

TEST(EndingSignals, EndTheProgramAtOnceTheSecondTime) {
  for (const int second : {SIGTERM, SIGINT}) {
    const int status = endOf([second] {
      const EndingSignals signals;
      raise(SIGINT);
      raise(second);
    });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), second);
  }
}

TEST(EndingSignals, AreToldOnceWhenATerminalOrALogInSessionEnds) {
  for (const auto& sent :
       {std::vector{SIGHUP, SIGHUP}, std::vector{SIGTERM, SIGHUP}, std::vector{SIGHUP, SIGTERM}}) {
    const int status = endOf([&] {
      EndingSignals signals;
      int count = 0;
      QObject::connect(&signals, &EndingSignals::arrived, [&] { ++count; });
      for (const int number : sent) raise(number);
      QCoreApplication::processEvents();
      QCoreApplication::processEvents();
      if (count != 1) _exit(1);
    });
    EXPECT_EQ(status, 0);
  }
}

TEST(EndingSignals, StayIgnoredWhereTheyWere) {
  const int status = endOf([] {
    std::signal(SIGHUP, SIG_IGN);
    const EndingSignals signals;
    int count = 0;
    QObject::connect(&signals, &EndingSignals::arrived, [&] { ++count; });
    raise(SIGHUP);
    QCoreApplication::processEvents();
    raise(SIGTERM);
    raise(SIGHUP);
    if (count != 0) _exit(1);
  });
  EXPECT_EQ(status, 0);
}

TEST(EndingSignals, HaveTheirUsualEffectAfterwards) {
  const int status = endOf([] {
    { const EndingSignals signals; }
    raise(SIGTERM);
  });
  EXPECT_TRUE(WIFSIGNALED(status));
}

}  // namespace
}  // namespace mirvane
