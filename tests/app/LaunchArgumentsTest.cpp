#include "app/model/LaunchArguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelta {
namespace {

using Request = LaunchArguments::Request;

LaunchArguments parse(const std::vector<const char*>& arguments)
{
    return parseLaunchArguments(arguments);
}

TEST(LaunchArguments, NoneMeansRunWithTheDefaultDatabase)
{
    EXPECT_EQ(parse({}), LaunchArguments {});
}

TEST(LaunchArguments, TheLastDatabaseWinsAndIsKeptAsGiven)
{
    EXPECT_EQ(parse({"-ZeltaBasicDatabase", "/a", "-ZeltaBasicDatabase", " ~/b "}).database, " ~/b ");
    EXPECT_EQ(parse({"-ZeltaBasicDatabase", "--help"}).database, "--help");
}

TEST(LaunchArguments, ADatabaseWithoutItsPathIsComplainedAboutInOneLineAndRunsAnyway)
{
    const LaunchArguments arguments = parse({"-ZeltaBasicDatabase"});
    EXPECT_EQ(arguments.request, Request::run);
    EXPECT_EQ(arguments.database, std::nullopt);
    ASSERT_TRUE(arguments.complaint);
    EXPECT_EQ(arguments.complaint->find('\n'), std::string::npos);
    EXPECT_EQ(parse({"-ZeltaBasicDatabase", "/a", "-ZeltaBasicDatabase"}).database, std::nullopt);
}

TEST(LaunchArguments, AnythingElseIsRefused)
{
    EXPECT_EQ(parse({"--versions"}).request, Request::refuse);
    EXPECT_EQ(parse({"notes.sqlite"}).request, Request::refuse);
    EXPECT_EQ(parse({"--version", "-x"}).request, Request::refuse);
    EXPECT_EQ(parse({"-x"}).complaint, "zelta-basic: unknown option '-x'; see --help");
    EXPECT_EQ(parse({"a\nb\x1b[1mé"}).complaint, "zelta-basic: unknown option 'a?b?[1mé'; see --help");
    EXPECT_EQ(parse({"a b\x7f"}).complaint, "zelta-basic: unknown option 'a b?'; see --help");
}

TEST(LaunchArguments, VersionAndHelpAreAnsweredInsteadOfRunning)
{
    EXPECT_EQ(parse({"--version"}).request, Request::version);
    EXPECT_EQ(parse({"-ZeltaBasicDatabase", "/a", "--help"}).request, Request::help);
}

} // namespace
} // namespace zelta
