# SPDX-License-Identifier: MIT
"""Drives a built program on a display of its own: starts it, finds its controls by role and spoken name, uses them."""
