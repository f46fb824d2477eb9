// GeoJSON: geometries, properties, the coordinate reference system as stated.
#include "inventory_files.h"

#include "geojson.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

namespace korvex {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

json exported(const Inventory& inventory, std::string_view coordinateSystem = "")
{
    return json::parse(
        test::bytesOf(geoJsonBytes(inventory.set, inventory.comment, inventory.hasDust(), coordinateSystem)));
}

TEST(GeoJson, AFeatureASourceWithItsGeometryAndTheValuesOfItsType)
{
    const test::TemporaryFolder folder;
    const json collection = exported(test::loaded(test::writeThree(folder)));
    EXPECT_EQ(collection["type"], "FeatureCollection");
    EXPECT_EQ(collection["soupis"], "Soupis");
    const json& features = collection["features"];
    ASSERT_EQ(features.size(), 3U);
    EXPECT_EQ(features[0]["geometry"], json::parse(R"({"type": "Point", "coordinates": [10, 20]})"));
    EXPECT_EQ(features[0]["properties"], json::parse(R"({"cislo": 1, "typ": 1, "nazev": "Pec, \"nová\"", "X_m": 10,
        "Y_m": 20, "Z_m": 300, "skupina": 2, "shluk": 3, "M_g_s": 0.5, "H_m": 30, "Vs_m3_s": 3.1, "ts_C": 150,
        "d_m": 1.2, "w0_m_s": 8.5, "Alfa": 0.8, "Pd_h": 24, "prach": "1800,0,1,10,1"})"));
    EXPECT_EQ(features[1]["geometry"]["type"], "Point");
    EXPECT_EQ(features[1]["properties"]["Delta_h_m"], 2);
    EXPECT_FALSE(features[1]["properties"].contains("ts_C"));
    EXPECT_FALSE(features[1]["properties"].contains("prach"));
    EXPECT_EQ(features[2]["geometry"], json::parse(R"({"type": "LineString", "coordinates": [[0, 0], [30, 40]]})"));
    EXPECT_EQ(features[2]["properties"]["ML_g_s_m"], 0.01);
}

TEST(GeoJson, RealsAreWrittenAsRealsAndWholeNumbersAsWholeOnes)
{
    const test::TemporaryFolder folder;
    const json collection = exported(test::loaded(test::writeThree(folder)));
    for (const char* const name : {"M_g_s", "H_m", "ts_C", "Pd_h"})
        EXPECT_TRUE(collection["features"][0]["properties"][name].is_number_float()) << name;
    for (const char* const name : {"cislo", "typ", "X_m", "skupina"})
        EXPECT_TRUE(collection["features"][0]["properties"][name].is_number_integer()) << name;
    cZdroje source(cBodovyZdroj);
    source.Parameters(0, 1E-05F);
    SourceSet set;
    set.append(std::move(source));
    const std::string written = test::bytesOf(geoJsonBytes(set, "", false, ""));
    EXPECT_NE(written.find(R"("M_g_s": 1E-05, "H_m": 0.0,)"), std::string::npos) << written;
}

TEST(GeoJson, IsValidForEveryOddInventory)
{
    std::size_t cases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KORVEX_SOURCE_DIR "/tests/golden/inventory")) {
        const bool withDust = std::filesystem::exists(entry.path() / "input/prach.txt");
        const Inventory inventory = test::loaded(test::filesIn(entry.path() / "input", withDust));
        const json collection = exported(inventory);
        EXPECT_EQ(collection["features"].size(), inventory.set.size()) << entry.path();
        ++cases;
    }
    EXPECT_GE(cases, 16U);
}

TEST(GeoJson, AnEmptyInventoryIsAnEmptyCollection)
{
    EXPECT_THAT(exported({})["features"], IsEmpty());
    EXPECT_FALSE(exported({}).contains("soupis"));
}

TEST(GeoJson, TheCoordinateSystemIsThereOnlyWhenStated)
{
    EXPECT_FALSE(exported({}).contains("crs"));
    EXPECT_EQ(exported({}, "urn:ogc:def:crs:EPSG::5514")["crs"],
        json::parse(R"({"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::5514"}})"));
}

TEST(GeoJson, ACoordinateSystemIsACodeOrAName)
{
    EXPECT_EQ(coordinateSystemName("EPSG:5514"), "urn:ogc:def:crs:EPSG::5514");
    EXPECT_EQ(coordinateSystemName("urn:ogc:def:crs:OGC:1.3:CRS84"), "urn:ogc:def:crs:OGC:1.3:CRS84");
    for (const std::string_view wrong :
        {"", "5514", "EPSG:", "EPSG:x", "EPSG:0", "EPSG:00", "epsg:5514", "urn:ogc:def:crs:", "S-JTSK"})
        EXPECT_FALSE(coordinateSystemName(wrong).has_value()) << wrong;
}

TEST(GeoJson, TextsAreEscaped)
{
    std::string written;
    appendJsonText(written, "a\"b\\c\r\x01řž");
    EXPECT_EQ(written, "\"a\\\"b\\\\c\\u000d\\u0001řž\"");
    EXPECT_EQ(json::parse(written), "a\"b\\c\r\x01řž");
}

}  // namespace
}  // namespace korvex
