// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// How much of a control is seen: 0 is transparent, 1 opaque. It keeps its place and answers to input all the same.
void setAlphaValue(QWidget& control, double alpha);
double alphaValue(const QWidget& control);
