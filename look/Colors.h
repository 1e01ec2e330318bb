// SPDX-License-Identifier: MIT
#pragma once

#include <QRgb>

/// A colour as it is in the light and in the dark appearance.
struct ColorPair {
    QRgb light;
    QRgb dark;

    constexpr QRgb of(bool isDark) const { return isDark ? dark : light; }
};

/// Every colour that the program has, except those in the pictures and help pages of resources/. A control does not
/// take its colours from here but asks for a role of the palette (look/Appearance.h) or a named colour
/// (look/NamedColor.h), which change with the appearance.
namespace Colors {

inline constexpr QRgb black = 0xff000000;
inline constexpr QRgb white = 0xffffffff;

// Texts. Each stands on a window, a list and a button at a contrast of 4.5:1 or better.
inline constexpr ColorPair text{0xff1d1d1f, 0xfff2f2f4};
inline constexpr ColorPair secondaryText{0xff5c5c62, 0xffb0b0b7};
inline constexpr ColorPair secondaryTextOfList{0xff6a6a6e, 0xffa0a0a6};
inline constexpr ColorPair placeholder{0xff6a6a70, secondaryTextOfList.dark};
inline constexpr ColorPair accentText{0xff2a65aa, 0xff78aef2};
inline constexpr ColorPair red{0xffba0019, 0xffff958c}; ///< today, and what went wrong

/// What cannot be used now, which is told apart by its paleness.
inline constexpr ColorPair paleText{0xffa6a6ac, 0xff77777d};

// Grounds.
inline constexpr ColorPair window{0xfff5f5f7, 0xff1e1e20};
inline constexpr ColorPair list{white, 0xff29292c}; ///< of cards too
inline constexpr ColorPair alternateRow{0xfffafafb, 0xff2e2e31};
inline constexpr ColorPair columnHeader{0xfff6f6f6, 0xff2a2a2c};
inline constexpr ColorPair raised{white, 0xff36363a};         ///< a button, a tool tip
inline constexpr ColorPair hovered{0xffececf0, 0xff3f3f44};   ///< under the pointer
inline constexpr ColorPair upperEdge{white, 0xff48484c};      ///< of what the toolkit draws raised
inline constexpr ColorPair selection{0xff2f6db5, 0xff3a76bd}; ///< the accent colour
inline constexpr ColorPair selectedRow{selection.light, 0xff2c5c94};
inline constexpr ColorPair selectedText{white, white}; ///< on either of the two

// Lines.
inline constexpr ColorPair line{0xffd6d6dc, 0xff4c4c52};       ///< around a control; a pressed button's ground
inline constexpr ColorPair hairline{0xffe4e4e6, 0xff3a3a3d};   ///< barely seen
inline constexpr ColorPair focusRing{0xff2f6fc4, 0xff6aa5f0};  ///< at 3:1 or better on a list
inline constexpr ColorPair engraving{0xffaaaaaa, 0xff0c0c0d};  ///< the shadow in an engraved rule; two thirds of white
inline constexpr ColorPair engravingLip{white, hairline.dark}; ///< its lower edge, which the light falls on

// In high contrast, where the desktop has no such colours of its own.
inline constexpr ColorPair strongGround{white, black};
inline constexpr ColorPair strongText{black, white};
inline constexpr ColorPair strongAccent{0xff003a80, 0xff9fd0ff};

/// The day on the program's icon, which looks the same on every desktop.
inline constexpr QRgb iconDigits = black;

} // namespace Colors
