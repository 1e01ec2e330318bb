// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

/// The opacity of a control: 0 is transparent, 1 opaque. A transparent control keeps its place and still responds to
/// input.
void setAlphaValue(QWidget& control, double alpha);
double alphaValue(const QWidget& control);
