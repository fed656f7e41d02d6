#include "views/palette_choice.h"

#include <gtest/gtest.h>

#include "tests/views/palettes.h"
#include "views/theme.h"

namespace mirvane {
namespace {

using ColorScheme = Appearance::ColorScheme;

const QPalette light(QColor(0xEF, 0xEF, 0xEF));

TEST(PaletteChoice, KeepsTheDesktopsOwnWhereItIsAsWanted) {
  for (const auto& desktop : {light, darkPalette(), highContrastPalette()}) {
    EXPECT_EQ(chosenPalette(desktop, {}), std::nullopt);
  }
  EXPECT_EQ(chosenPalette(light, {ColorScheme::light, false}), std::nullopt);
  EXPECT_EQ(chosenPalette(darkPalette(), {ColorScheme::dark, false}), std::nullopt);
  EXPECT_EQ(chosenPalette(highContrastPalette(), {ColorScheme::light, true}), std::nullopt);
}

TEST(PaletteChoice, IsDarkOrLightAsWanted) {
  for (const auto& [desktop, wanted] :
       {std::pair{light, ColorScheme::dark}, std::pair{darkPalette(), ColorScheme::light}}) {
    const auto chosen = chosenPalette(desktop, {wanted, false});
    ASSERT_TRUE(chosen);
    EXPECT_EQ(theme::isDark(*chosen), wanted == ColorScheme::dark);
    EXPECT_FALSE(theme::isHighContrast(*chosen));
  }
}

TEST(PaletteChoice, IsOfHighContrastWhereThatIsWanted) {
  for (const auto wanted : {ColorScheme::noPreference, ColorScheme::dark, ColorScheme::light}) {
    const auto chosen = chosenPalette(light, {wanted, true});
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(theme::isHighContrast(*chosen));
    EXPECT_EQ(theme::isDark(*chosen), wanted == ColorScheme::dark);
  }
}

}  // namespace
}  // namespace mirvane
