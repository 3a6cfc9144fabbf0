#pragma once

#include "base/Color.h"

#include <orrelo/Export.h>

namespace orrelo {

/// The kit's dark grey for text.
inline constexpr Color plainTextColor{0.239, 0.243, 0.247, 1.0};
/// The text of a button that is disabled.
inline constexpr Color disabledTextColor{107.0 / 255.0, 109.0 / 255.0, 112.0 / 255.0, 1.0};

/// The contrast ratio of a colour and white, from 1 to 21 (WCAG 2.1, "contrast ratio"). Components outside 0
/// to 1 are clamped, and those that are not finite count as 0.
ORRELO_EXPORT double contrastToWhite(const Color& color);

/// White as designed, or dark grey if white would not be legible on the background.
ORRELO_EXPORT Color textColorOn(const Color& background);

/// The colour as designed, or a darker shade that is legible on white.
ORRELO_EXPORT Color legibleOnWhite(const Color& color);

/// The background of a button with this colour: as designed, or pale if the button is disabled.
ORRELO_EXPORT Color buttonFill(const Color& color, bool isEnabled);
/// The text colour on `buttonFill`.
ORRELO_EXPORT Color buttonTextColor(const Color& color, bool isEnabled);

}  // namespace orrelo
