// What the program says in the welcome and in its help.
#pragma once

#include "text/text.h"

namespace pointalk {

// The maker's rights and terms: in the welcome, in About, and on the panel's label.
inline constexpr TextView kRightsStatement =
    u"Copyright Corvane.  You may use it and pass it on, unchanged and free of charge.  ";

inline constexpr TextView kGreeting = u"Hello, and welcome to Pointalk, the Audio Mouse \"Driver\".  ";

inline constexpr TextView kThanks = u"thank you";

// What the tones and keys do. In truth the horizontal tone is the higher one; the text stays as it is.
inline constexpr TextView kInstructions =
    u"This mouse driver lets you hear your mouse position as two tones.  The lower tone tells your "
    u"horizontal position, and the higher tone tells your vertical position.  When you stop moving, the "
    u"tones stop.  As you get used to identifying your location, the computer screen should begin to take "
    u"shape in front of your mind's eye.  To spell an item, hold the shift key.  To identify the kind of "
    u"object hit the control key. Whenever you need to find the Pointalk control Panel, you can use Alt Tab "
    u"to unminimize it to the top left of the screen. Pointalk may eventually be developed it into a "
    u"complete stand alone screen reader package, but no promises are being made. At this time it is "
    u"strictly a mouse driven real time screen reader to be used with existing readers as an accelerated "
    u"navigational aid. Please explore the Pointalk control panel's menu for user options. ";

}  // namespace pointalk
