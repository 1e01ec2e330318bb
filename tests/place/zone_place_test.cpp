// SPDX-License-Identifier: MIT
#include "place/ZonePlace.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <fstream>

using namespace ZonePlace;

namespace {

struct Text {
    const char* text;
    double latitude;
    double longitude;
};

TEST(ZonePlaceText, StandsForDegreesNorthAndEast)
{
    constexpr Text Rows[] = {
        {"+5230+01322", 52.5, 13 + 22 / 60.0},
        {"-3352+15113", -(33 + 52 / 60.0), 151 + 13 / 60.0},
        {"+404251-0740023", 40 + 42 / 60.0 + 51 / 3600.0, -(74 + 23 / 3600.0)},
        {"-720041+0023206", -(72 + 41 / 3600.0), 2 + 32 / 60.0 + 6 / 3600.0},
        {"-0012-00034", -0.2, -(34 / 60.0)},
        {"+0000+00000", 0.0, 0.0},
        {"+9000+18000", 90.0, 180.0},
        {"-900000-1800000", -90.0, -180.0},
    };
    for (const Text& row : Rows) {
        const std::optional<Coordinate> place = placeFromIso6709(row.text);
        ASSERT_TRUE(place) << row.text;
        EXPECT_NEAR(place->latitude, row.latitude, 1e-12) << row.text;
        EXPECT_NEAR(place->longitude, row.longitude, 1e-12) << row.text;
    }
}

TEST(ZonePlaceText, OfAnyOtherFormStandsForNothing)
{
    for (const char* text : {"",
                             "+",
                             "+5230",
                             "+5230+0132",
                             "+5230+013222",
                             "+523000+01322",
                             "+5230+0132200",
                             " +5230+01322",
                             "+5230+01322 ",
                             "5230+013220",
                             "+523001322+",
                             "+52.5+13.36",
                             "+52a0+01322",
                             "+5230x01322",
                             "+5230+01 22",
                             "++230+01322",
                             "+5-30+01322",
                             "+5230++1322",
                             "+5260+01322",
                             "+5230+01360",
                             "+523060+0132200",
                             "+523000+0132260",
                             "+9001+00000",
                             "-9100+00000",
                             "+9900+00000",
                             "+0000+18001",
                             "+0000-99900",
                             "+900001+0000000",
                             "+000000-1800001",
                             "+5230+01322+0",
                             "+5230+01322/"}) {
        EXPECT_EQ(placeFromIso6709(text), std::nullopt) << text;
    }
    EXPECT_EQ(placeFromIso6709(std::string_view("+5230\0"
                                                "01322",
                                                11)),
              std::nullopt);
}

constexpr Coordinate Berlin{52.5, 13.5};
constexpr Coordinate Kolkata{22.5, 88.5};
constexpr Coordinate Abidjan{5.25, -4.0};
constexpr Coordinate Reykjavik{64.25, -21.75};
constexpr Coordinate Amsterdam{52.25, 4.75};

Database sampleDatabase()
{
    return {"# comment\n"
            "#XX\t+0000+00000\tEurope/Berlin\n"
            "DE,DK,NO\t+5230+01330\tEurope/Berlin\tmost of Germany\n"
            "CI,BF\t+0515-00400\tAfrica/Abidjan\n"
            "IN\t+2230+08830\tAsia/Kolkata\n",
            "# comment\n"
            "DE\t+0000+00000\tEurope/Berlin\n"
            "IS\t+6415-02145\tAtlantic/Reykjavik\n"
            "NL\t+5215+00445\tEurope/Amsterdam", // the last line need not end
            "# version 1\n"
            "R d 1916 o - Jun 14 23s 1 S\n"
            "Z Asia/Kolkata 5:53:28 - LMT 1854 Jun 28\n"
            "L Asia/Kolkata Asia/Calcutta\n"
            "L Africa/Abidjan Iceland\n"
            "L Europe/Berlin Test/Old\n"
            "L Test/Old Test/Older\n"
            "L Etc/UTC UTC\n"
            "L Test/Ring Test/Rang\n"
            "L Test/Rang Test/Ring\n"
            "L Test/Self Test/Self\n"
            "L\nL \nL Test/NoName\nL Test/Empty \nL  Test/NoTarget\n"};
}

TEST(ZonePlaceInDatabase, IsThatOfTheZonesRow)
{
    EXPECT_EQ(placeInDatabase(sampleDatabase(), "Europe/Berlin"), Berlin);
    EXPECT_EQ(placeInDatabase(sampleDatabase(), "Africa/Abidjan"), Abidjan);
}

TEST(ZonePlaceInDatabase, IsThatOfTheTableByCountriesWhereTheOtherHasNoRow)
{
    EXPECT_EQ(placeInDatabase(sampleDatabase(), "Europe/Amsterdam"), Amsterdam);
}

TEST(ZonePlaceInDatabase, FollowsLinksToOtherNames)
{
    EXPECT_EQ(placeInDatabase(sampleDatabase(), "Asia/Calcutta"), Kolkata);
    EXPECT_EQ(placeInDatabase(sampleDatabase(), "Test/Old"), Berlin);
    EXPECT_EQ(placeInDatabase(sampleDatabase(), "Test/Older"), Berlin);
}

TEST(ZonePlaceInDatabase, DoesNotFollowALinkAcrossABorderWhereTheCountrysOwnCityIsKnown)
{
    Database database = sampleDatabase();
    EXPECT_EQ(placeInDatabase(database, "Iceland"), Reykjavik);
    database.zoneTab.clear();
    EXPECT_EQ(placeInDatabase(database, "Iceland"), Abidjan);
}

TEST(ZonePlaceInDatabase, IsMissingForAZoneWithoutACity)
{
    for (const char* zone : {"UTC", "Etc/UTC", "Etc/GMT+5", "GMT", "EST", "Test/Unknown"}) {
        EXPECT_EQ(placeInDatabase(sampleDatabase(), zone), std::nullopt) << zone;
    }
}

TEST(ZonePlaceInDatabase, IsMissingForAMalformedName)
{
    Database database = sampleDatabase();
    database.zone1970Tab += "XX\t+0000+00000\t\nXX\t+0000+00000\t../Berlin\nXX\t+0000+00000\tEurope//Berlin\n"
                            "XX\t+0000+00000\t/Europe/Berlin\nXX\t+0000+00000\tEurope/\n";
    for (const char* zone : {"", " ", "/", "../Berlin", "Europe//Berlin", "/Europe/Berlin", "Europe/", "Europe/Berlin ",
                             " Europe/Berlin", "europe/berlin", "Europe", "Europe/Berlin\n", "Europe/B\xC3\xA9rlin"}) {
        EXPECT_EQ(placeInDatabase(database, zone), std::nullopt) << zone;
    }
    EXPECT_EQ(placeInDatabase(database, std::string_view("Europe/Berlin\0", 14)), std::nullopt);
    EXPECT_EQ(placeInDatabase(database, std::string(100000, 'A')), std::nullopt);
}

TEST(ZonePlaceInDatabase, IsMissingWhereLinksLeadNowhere)
{
    for (const char* zone : {"Test/Ring", "Test/Rang", "Test/Self", "Test/NoName", "Test/Empty", "Test/NoTarget"}) {
        EXPECT_EQ(placeInDatabase(sampleDatabase(), zone), std::nullopt) << zone;
    }
}

TEST(ZonePlaceInDatabase, IsThatOfTheFirstGoodRow)
{
    const Database database{"DE\nDE\t\nDE\t+5230+01330\n\t\t\t\n\n"
                            "DE\tBerlin\tEurope/Berlin\n"
                            "DE\t+5260+01330\tEurope/Berlin\n"
                            "DE +5230+01330 Europe/Berlin\n"
                            "DE\t+5230+01330\tEurope/Berlin\n"
                            "DE\t+0000+00000\tEurope/Berlin\n",
                            {},
                            {}};
    EXPECT_EQ(placeInDatabase(database, "Europe/Berlin"), Berlin);
}

TEST(ZonePlaceInDatabase, IsMissingInTablesOfAnythingElse)
{
    const std::string noise("\x7f"
                            "ELF\t\0\t\n\t\xFF\xFE\r\n",
                            14);
    EXPECT_EQ(placeInDatabase({noise, noise, noise}, "Europe/Berlin"), std::nullopt);
    EXPECT_EQ(placeInDatabase({}, "Europe/Berlin"), std::nullopt);
}

class ZonePlaceInFolder : public testing::Test {
protected:
    std::filesystem::path folder() const { return m_folder.path().toStdString(); }

    void write(const std::filesystem::path& name, const std::string& content) const
    {
        std::filesystem::create_directories((folder() / name).parent_path());
        std::ofstream(folder() / name, std::ios::binary) << content;
    }

    void writeTables() const
    {
        write("zone1970.tab", sampleDatabase().zone1970Tab);
        write("zone.tab", sampleDatabase().zoneTab);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(ZonePlaceInFolder, IsThatOfItsThreeFiles)
{
    writeTables();
    write("tzdata.zi", sampleDatabase().tzdataZi);
    EXPECT_EQ(placeOfZone("Europe/Berlin", folder()), Berlin);
    EXPECT_EQ(placeOfZone("Europe/Amsterdam", folder()), Amsterdam);
    EXPECT_EQ(placeOfZone("Test/Older", folder()), Berlin);
    EXPECT_EQ(placeOfZone("UTC", folder()), std::nullopt);
}

TEST_F(ZonePlaceInFolder, FollowsLinksOfTheFileSystemWhereNothingElseNamesThem)
{
    writeTables();
    write("Europe/Berlin", "TZif");
    write("Asia/Kolkata", "TZif");
    write("EST", "TZif");
    std::filesystem::create_directory(folder() / "Test");
    std::filesystem::create_symlink("../Europe/Berlin", folder() / "Test/Symbolic");
    std::filesystem::create_symlink("Symbolic", folder() / "Test/Twice");
    std::filesystem::create_hard_link(folder() / "Asia/Kolkata", folder() / "Test/Hard");
    std::filesystem::create_symlink("nowhere", folder() / "Test/Dangling");
    std::filesystem::create_symlink("Ring", folder() / "Test/Ring");
    EXPECT_EQ(placeOfZone("Test/Symbolic", folder()), Berlin);
    EXPECT_EQ(placeOfZone("Test/Twice", folder()), Berlin);
    EXPECT_EQ(placeOfZone("Test/Hard", folder()), Kolkata);
    for (const char* zone : {"EST", "Test", "Test/Dangling", "Test/Ring", "Test/../Europe/Berlin", ""}) {
        EXPECT_EQ(placeOfZone(zone, folder()), std::nullopt) << zone;
    }
}

TEST_F(ZonePlaceInFolder, IsThatOfTheTableByCountriesAlone)
{
    write("zone.tab", sampleDatabase().zone1970Tab);
    EXPECT_EQ(placeOfZone("Europe/Berlin", folder()), Berlin);
}

TEST_F(ZonePlaceInFolder, IsMissingWhereThereIsNoDatabase)
{
    EXPECT_EQ(placeOfZone("Europe/Berlin", folder()), std::nullopt);
    EXPECT_EQ(placeOfZone("Europe/Berlin", folder() / "absent"), std::nullopt);
    EXPECT_EQ(placeOfZone("Europe/Berlin", {}), std::nullopt);
    std::filesystem::create_directory(folder() / "zone1970.tab");
    std::filesystem::create_symlink("/dev/zero", folder() / "zone.tab");
    EXPECT_EQ(placeOfZone("Europe/Berlin", folder()), std::nullopt);
}

TEST_F(ZonePlaceInFolder, IsMissingInAFileFarTooLong)
{
    write("zone1970.tab", sampleDatabase().zone1970Tab);
    std::filesystem::resize_file(folder() / "zone1970.tab", 1ULL << 30U);
    EXPECT_EQ(placeOfZone("Europe/Berlin", folder()), std::nullopt);
}

} // namespace
