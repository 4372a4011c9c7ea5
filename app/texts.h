// Longer texts that the program says and shows in more than one place.
#pragma once

#include "platform/text.h"

namespace pointalk {

// The maker's rights and terms: in the welcome, in About, and on the panel's label.
inline constexpr TextView kRightsStatement =
    u"Copyright Corvane.  You may use it and pass it on, unchanged and free of charge.  ";

inline constexpr TextView kGreeting = u"Hello, and welcome to Pointalk, the Audio Mouse \"Driver\".  ";

inline constexpr TextView kThanks = u"thank you";

inline constexpr TextView kInstructionsTitle = u"Pointalk Instructions";

// What the tones and keys do. The horizontal tone is in truth the higher one; the text has always said so.
inline constexpr TextView kInstructions =
    u"This mouse driver lets you hear your mouse position as two tones.  The lower tone tells your "
    u"horizontal "
    u"position, and the higher tone tells your vertical position.  When you stop moving, the tones stop.  As "
    u"you get "
    u"used to identifying your location, the computer screen should begin to take shape in front of your "
    u"mind's eye.  "
    u"To spell an item, hold the shift key.  To identify the kind of object hit the control key. Whenever "
    u"you need to "
    u"find the Pointalk control Panel, you can use Alt Tab to unminimize it to the top left of the screen. "
    u"Pointalk "
    u"may eventually be developed it into a complete stand alone screen reader package, but no promises are "
    u"being "
    u"made. At this time it is strictly a mouse driven real time screen reader to be used with existing "
    u"readers as an "
    u"accelerated navigational aid. Please explore the Pointalk control panel's menu for user options. ";

}  // namespace pointalk
