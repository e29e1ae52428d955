#include "KeloRun.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace kelo;
using namespace kelo::e2e;

TEST(ListingsExample, OutputOrdersWriteTheListingsBesideTheFile) {
    std::remove("listings.lis");
    const RunResult r = RunKelo(SourcePath("examples/listings.inp"), "listings.inp");
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    std::string lis;
    ASSERT_TRUE(ReadWholeFile("listings.lis", lis));

    // The five listings follow one another in the order of the orders.
    const std::string titles[] = {"Nodes\r\n=====\r\n", "Boundary conditions\r\n",
                                  "Elements\r\n========\r\n", "Loads\r\n=====\r\n",
                                  "Ordinary load combinations\r\n"};
    std::size_t at = 0;
    for (const std::string& title : titles) {
        const std::size_t found = lis.find(title, at);
        ASSERT_NE(found, std::string::npos) << title << lis;
        at = found;
    }
    // Nodes 1 and 3 by the interval; node 2 is left out.
    EXPECT_EQ(Count(lis, "      1     0.000     0.000     0.000      N/A\r\n"), 1) << lis;
    EXPECT_EQ(Count(lis, "      2     5.000"), 0);
    EXPECT_EQ(Count(lis, "      3    10.000     0.000     0.000      N/A\r\n"), 1);
    EXPECT_EQ(Count(lis, "      1     1     1     1     1     1     1\r\n"
                         "      3     0     0     1     0     0     0\r\n"),
              1);
    // Both elements, 5 m long, with no releases.
    EXPECT_EQ(Count(lis, "     1      1      2    5.000"), 1);
    EXPECT_EQ(Count(lis, "     2      2      3    5.000"), 1);
    EXPECT_EQ(Count(lis, "Load case:      1   Deck\r\n"), 1);
    EXPECT_EQ(Count(lis, "     1     1     3     -10.000     -10.000       0.000       0.000\r\n"
                         "     2     1     3     -10.000     -10.000       0.000       0.000\r\n"),
              1);
    EXPECT_EQ(Count(lis, "Combination:     5  ULS   Ultimate\r\n"
                         "        Code    No    Factor\r\n"
                         "          LC     1     1.500\r\n"),
              1);
    // Every line of the file ends "\r\n".
    EXPECT_EQ(Count(lis, "\n"), Count(lis, "\r\n"));
    std::remove("listings.lis");
}
