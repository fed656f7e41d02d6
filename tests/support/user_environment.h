#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace mirvane {

/// Fixes the user's locale and time zone for a whole test program: both are read only once.
class UserEnvironment : public testing::Environment {
 public:
  UserEnvironment(const char* locale, const char* timeZone)
      : locale_(locale), timeZone_(timeZone) {}

  void SetUp() override {
    setenv("LC_ALL", locale_.c_str(), 1);
    setenv("TZ", timeZone_.c_str(), 1);
    tzset();
  }

 private:
  std::string locale_, timeZone_;
};

}  // namespace mirvane
