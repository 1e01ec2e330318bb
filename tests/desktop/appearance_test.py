# SPDX-License-Identifier: MIT
"""The window's colours go with the desktop's light and dark setting, at the start and while the program runs."""

import subprocess
import tempfile
import unittest

from gi.repository import GLib

from desktop.case import DesktopTest
from desktop.portal import DARK, LIGHT, NO_PREFERENCE, Portal

HEIGHT = 3  # of a rectangle

KDE_DARK = """[Colors:View]
BackgroundNormal=35,38,41
ForegroundNormal=252,252,252
[Colors:Window]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
"""


class AppearanceTest(DesktopTest):
    def brightness(self):
        """The mean of the window's picture: 0 is black, 1 white. None while there is no window."""
        window = self.session.screen.painted_window()
        if not window:
            return None
        with tempfile.NamedTemporaryFile(suffix=".png") as file:
            self.session.screen.save_picture(file.name, window)
            return float(subprocess.run(["identify", "-format", "%[fx:mean]", file.name], check=True,
                                        capture_output=True, text=True).stdout)

    def wait_until_dark(self, window):
        window.wait_until(lambda: (mean := self.brightness()) is not None and mean < 0.35, "dark colours")

    def wait_until_light(self, window):
        window.wait_until(lambda: (mean := self.brightness()) is not None and mean > 0.8, "light colours")

    def test_follows_the_portal_from_dark_to_light_and_back(self):
        with Portal(self.session, DARK) as portal:
            window = self.start()
            self.wait_until_dark(window)
            self.picture("appearance-dark")
            portal.set_color_scheme(LIGHT)
            self.wait_until_light(window)
            self.picture("appearance-light")
            portal.set_color_scheme(DARK)
            self.wait_until_dark(window)
            portal.set_color_scheme(NO_PREFERENCE)
            self.wait_until_light(window)

    def test_another_setting_changes_nothing(self):
        with Portal(self.session, LIGHT) as portal:
            window = self.start()
            self.wait_until_light(window)
            portal.tell("org.freedesktop.appearance", "accent-color", GLib.Variant("(ddd)", (1.0, 0.0, 0.0)))
            portal.tell("org.gnome.desktop.interface", "color-scheme", GLib.Variant("s", "prefer-dark"))
            portal.set_color_scheme(LIGHT)  # heard after the others
            window.find("push button", "Today").press()
            self.wait_until_light(window)

    def colours(self):
        """How many different colours the window shows in places that are large enough to count."""
        with tempfile.NamedTemporaryFile(suffix=".png") as file:
            self.session.screen.save_picture(file.name, self.session.screen.painted_window())
            histogram = subprocess.run(["convert", file.name, "-format", "%c", "histogram:info:-"], check=True,
                                       capture_output=True, text=True).stdout
        return {line.split()[2][:7] for line in histogram.splitlines() if int(line.split(":")[0]) > 20000}

    def test_follows_the_portal_into_high_contrast_and_back(self):
        with Portal(self.session, LIGHT) as portal:
            window = self.start()
            self.wait_until_light(window)
            calm = self.colours()
            portal.set_setting("org.freedesktop.appearance", "contrast", GLib.Variant("u", 1))
            window.wait_until(lambda: self.colours() == {"#FFFFFF"}, "white ground")
            self.picture("appearance-high-contrast")
            portal.set_color_scheme(DARK)
            window.wait_until(lambda: self.colours() == {"#000000"}, "black ground")
            self.picture("appearance-high-contrast-dark")
            portal.set_color_scheme(LIGHT)
            portal.set_setting("org.freedesktop.appearance", "contrast", GLib.Variant("u", 0))
            window.wait_until(lambda: self.colours() == calm, "the calm colours")

    def test_starts_in_high_contrast(self):
        with Portal(self.session, DARK) as portal:
            portal.set_setting("org.freedesktop.appearance", "contrast", GLib.Variant("u", 1))
            window = self.start()
            window.wait_until(lambda: self.session.screen.painted_window() and self.colours() == {"#000000"},
                              "black ground")

    def test_the_desktops_own_colours_of_high_contrast_are_kept(self):
        home = self.new_home()
        (home.path / ".config/kdeglobals").write_text(
            KDE_DARK.replace("35,38,41", "0,0,40").replace("49,54,59", "0,0,40").replace("252,252,252", "255,255,0"),
            encoding="utf-8")
        window = self.start(home=home, environment={"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
        window.wait_until(lambda: self.session.screen.painted_window() and self.colours() == {"#000028"},
                          "the desktop's ground")
        self.picture("appearance-own-high-contrast")

    def test_texts_are_as_large_as_the_portal_says(self):
        with Portal(self.session, LIGHT) as portal:
            window = self.start()
            self.wait_until_light(window)
            height = window.find("push button", "Today").rectangle[HEIGHT]
            portal.set_setting("org.gnome.desktop.interface", "font-name", GLib.Variant("s", "Cantarell 15"))
            window.wait_until(lambda: window.find("push button", "Today").rectangle[HEIGHT] > height, "larger texts")
            self.picture("appearance-large-texts")
            portal.set_setting("org.gnome.desktop.interface", "font-name", GLib.Variant("s", "Cantarell"))
            window.wait_until(lambda: window.find("push button", "Today").rectangle[HEIGHT] == height, "texts as before")

    def test_a_portal_that_never_answers_is_not_waited_for(self):
        with Portal(self.session, DARK, silent=True) as portal:
            window = self.start()
            self.assertTrue(portal.asked.wait(20))
            self.wait_until_light(window)
            portal.set_color_scheme(DARK)
            self.wait_until_dark(window)

    def test_without_a_portal_the_desktops_own_colours_decide(self):
        window = self.start()
        self.wait_until_light(window)
        window.quit()

        dark = self.new_home()
        (dark.path / ".config/kdeglobals").write_text(KDE_DARK, encoding="utf-8")
        window = self.start(home=dark, environment={"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
        self.wait_until_dark(window)

    def test_the_portals_word_counts_more_than_the_colours(self):
        dark = self.new_home()
        (dark.path / ".config/kdeglobals").write_text(KDE_DARK, encoding="utf-8")
        with Portal(self.session, LIGHT):
            window = self.start(home=dark, environment={"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
            self.wait_until_light(window)


if __name__ == "__main__":
    unittest.main(verbosity=2)
