# SPDX-License-Identifier: MIT
"""Today's sunrise and sunset under the calendar, with and without a location service on the system bus."""

import datetime
import pathlib
import re
import sys
import unittest
import zoneinfo

from desktop.case import DesktopTest
from desktop.geoclue import LocationService, SYDNEY

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "data/sun_times"))
import sun_times  # noqa: E402  (its folder is named first)

BERLIN = (52 + 30 / 60, 13 + 22 / 60)  # "+5230+01322" in zone1970.tab
HAMBURG = (53.55, 9.99)
LINE = re.compile("^Rise/Set: ")


def clock_text(packed):
    hour, minute = divmod(round(packed * 100), 100)
    return f"{datetime.time(hour % 24, minute):%I:%M %p}".lstrip("0")


def line_at(place):
    latitude, longitude = place
    now = datetime.datetime.now(zoneinfo.ZoneInfo("Europe/Berlin"))
    west_hours = -now.utcoffset().total_seconds() / 3600
    rise, set_ = sun_times.sun_times(-longitude, latitude, west_hours, now.year, now.month, now.day)
    return f"Rise/Set: {clock_text(rise)}/{clock_text(set_)}"


class LocationTest(DesktopTest):
    def start_with(self, behaviour):
        self.service = LocationService(self.session.processes, behaviour)
        return self.start(environment=self.service.environment)

    def wait_for_line(self, window, place):
        def shown():
            return window.find("label", LINE).name.replace("\u202f", " ")
        window.wait_until(lambda: shown() == line_at(place), f"the line of {place}")

    def test_without_a_location_service_it_is_that_of_the_zones_city(self):
        window = self.start()
        self.wait_for_line(window, BERLIN)
        self.assertIn("main city of your time zone", window.find("label", LINE).description)
        self.picture("location-city")

    def test_the_location_services_place_replaces_the_citys(self):
        window = self.start_with("answers")
        self.wait_for_line(window, SYDNEY)
        self.assertIn("from the desktop's location service", window.find("label", LINE).description)
        self.service.wait_for("Stop")

    def test_a_second_answer_does_not_count(self):
        window = self.start_with("answers-twice")
        self.service.wait_for("DeleteClient")
        self.wait_for_line(window, SYDNEY)

    def test_a_refusal_leaves_the_citys(self):
        window = self.start_with("refuses")
        self.service.wait_for("Start")
        self.wait_for_line(window, BERLIN)

    def test_an_answer_that_comes_late_counts(self):
        window = self.start_with("answers-late")
        self.service.wait_for("Start")
        self.wait_for_line(window, BERLIN)
        self.service.go_on()
        self.wait_for_line(window, SYDNEY)

    def test_a_service_that_never_answers_holds_nothing_up(self):
        window = self.start_with("never")
        self.service.wait_for("Start")
        self.wait_for_line(window, BERLIN)
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)

    def test_a_place_entered_in_the_preferences_is_followed_and_kept(self):
        window = self.start()
        self.wait_for_line(window, BERLIN)
        window.key("ctrl+comma")
        window.find("text", "Latitude:").type("53,55")
        window.find("text", "Longitude:").type("9.99")
        window.key("Tab")
        self.wait_for_line(window, HAMBURG)
        self.picture("location-preferences")
        window.find("text", "Latitude:").focus()
        window.key("ctrl+a")
        window.type("91")
        window.key("Tab")
        window.find("label", "The latitude is a number from −90 to 90")
        self.picture("location-refused")
        window.key("Escape")
        window.wait_until_gone("dialog")
        window.key("ctrl+q")
        self.assertEqual(window.wait_for_end(), 0)
        self.wait_for_line(self.start(), HAMBURG)


if __name__ == "__main__":
    unittest.main(verbosity=2)
