#include "layout/layout.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/spy.h"

TEST(Layout, Differences_Are_Reported_Once) {
    galdren_test::Report_Catcher reports;
    EXPECT_TRUE(Check_Tools_Layout());
    EXPECT_EQ(reports.Take(), "");

    auto classes = galdren::Class_Sizes;
    const auto expect_report = [&](const char* version, std::size_t count, const std::string& end) {
        EXPECT_FALSE(Compare_Tools_Layout(version, classes.data(), count));
        const std::string report = reports.Take();
        EXPECT_TRUE(report.starts_with("2:Galdren_Tools: ") && report.ends_with(end)) << report;
        EXPECT_EQ(report.find('|'), std::string::npos);
    };
    const std::string own_count = std::to_string(classes.size()) + " classes";
    expect_report("20.1", classes.size(), "with Galdren_Tools.dll 21.6 (rev-a) and " + own_count);
    expect_report(Tools_Version(), classes.size() - 1, own_count);
    classes[0].size = 7;
    const std::string first = "Boxs 7 / " + std::to_string(sizeof(Boxs));
    expect_report(Tools_Version(), classes.size(), ": " + first);
    classes.back().size = 0xFFFFFFFF;
    expect_report(Tools_Version(), classes.size(),
                  ": " + first + ", Valuators 4294967295 / " + std::to_string(sizeof(Valuators)));
    for (Class_Size& row : classes)
        row.size = 0xFFFFFFFF;
    EXPECT_FALSE(Compare_Tools_Layout(Tools_Version(), classes.data(), classes.size()));
}
