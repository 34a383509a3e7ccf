// kivodt's command line: options before or after the command word, values after SPEC, refusals.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "kivodt/CommandLine.h"

namespace {

using Arguments = std::vector<std::string_view>;

// What a command line asks for, in one comparable text, with the options it sets applied to a
// fresh locator.
std::string meaningOf(const Arguments& arguments) {
    kivodt::CommandLine line;
    std::string error;
    if (!kivodt::parseCommandLine(arguments, line, error)) return "error: " + error;
    if (line.help) return "help";
    kivo::ServiceLocator session;
    if (!kivodt::applySettings(line, session, error)) return "refused: " + error;
    std::string meaning;
    const std::pair<bool, const char*> switches[] = {
        {line.hex, "hex"},   {line.hexInput, "hex-in"},       {line.hexOutput, "hex-out"},
        {line.keep, "keep"}, {line.keepBlanks, "keep-blanks"}, {line.noHeader, "no-header"},
    };
    for (const auto& [on, name] : switches) meaning += on ? std::string(name) + " " : "";
    meaning += line.csv ? "csv=" + std::string(*line.csv) + " " : "";
    meaning += line.delimiter ? "delimiter=" + std::string(*line.delimiter) + " " : "";
    meaning += line.threads ? "threads=" + std::string(*line.threads) + " " : "";
    meaning += std::string(line.command) + " " + std::string(line.spec) + " " + std::string(line.formatSpec) + "[";
    for (std::string_view input : line.inputs) meaning += std::string(input) + ";";
    return meaning + "] " + session.systemOptions().getOption("datestyle") + "/" +
           session.systemOptions().getOption("yearcutoff") + "/" + session.env().missingChar() + "/" +
           session.systemOptions().getOption("today");
}

TEST(KivodtCommandLine, EveryOptionMeansTheSameBeforeAndAfterTheCommand) {
    const std::map<std::string_view, std::string_view> samples = {
        {"--datestyle", "dmy"}, {"--yearcutoff", "1920"}, {"--missing-char", "?"}, {"--today", "2021-03-17"},
        {"--csv", "2"},         {"--delimiter", ";"},         {"--threads", "2"}};
    for (const kivodt::CommandLineOption& option : kivodt::commandLineOptions()) {
        ASSERT_TRUE(!option.takesArgument() || samples.contains(option.name)) << option.name << " needs a sample";
        Arguments before = {option.name}, after = {"informat", option.name};
        if (option.takesArgument()) before.push_back(samples.at(option.name)), after.push_back(samples.at(option.name));
        before.insert(before.end(), {"informat", "ANYDTDTE", "01/02/03"});
        after.insert(after.end(), {"ANYDTDTE", "01/02/03"});
        const std::string meaning = meaningOf(before);
        EXPECT_EQ(meaning, meaningOf(after)) << option.name;
        EXPECT_NE(meaning, meaningOf({"informat", "ANYDTDTE", "01/02/03"})) << option.name << " changed nothing";
    }
}

TEST(KivodtCommandLine, EverythingAfterTheSpecIsAValue) {
    EXPECT_EQ(meaningOf({"--datestyle", "ymd", "format", "--hex", "DATE9.", "-5", "--hex", "--datestyle", "dmy"}),
              "hex format DATE9. [-5;--hex;--datestyle;dmy;] ymd/1940/./");
    EXPECT_EQ(meaningOf({"--datestyle", "ymd", "informat", "--datestyle", "dmy", "ANYDTDTE"}),
              "informat ANYDTDTE [] dmy/1940/./");
    EXPECT_EQ(meaningOf({"list", "--hex"}), "hex list  [] locale/1940/./");
    EXPECT_EQ(meaningOf({"--csv", "", "convert", "--keep", "ANYDTDTE", "DATE9.", "--no-header", "x"}),
              "keep csv= convert ANYDTDTE DATE9.[--no-header;x;] locale/1940/./");
}

TEST(KivodtCommandLine, BadCommandLinesAreNamed) {
    const std::pair<Arguments, std::string> cases[] = {
        {{}, "error: no command given"},
        {{"--hex"}, "error: no command given"},
        {{"formats", "DATE9."}, "error: unknown command \"formats\""},
        {{"format"}, "error: format needs a SPEC"},
        {{"format", "--hex"}, "error: format needs a SPEC"},
        {{"convert", "ANYDTDTE"}, "error: convert needs an INFORMAT and a FORMAT"},
        {{"format", "--csv"}, "error: --csv needs an argument"},
        {{"format", "--datestyle"}, "error: --datestyle needs an argument"},
        {{"format", "--date", "dmy", "DATE9."}, "error: unknown option \"--date\""},
        {{"format", "--datestyle", "xyz", "DATE9."},
         "refused: --datestyle takes dmy, dym, mdy, myd, ydm, ymd or locale, not \"xyz\""},
        {{"--yearcutoff", "19x0", "list"}, "refused: --yearcutoff takes a year from 1582 to 19900, not \"19x0\""},
        {{"format", "--missing-char", "ab", "DATE9."}, "refused: --missing-char takes one character, not \"ab\""},
    };
    for (const auto& [arguments, meaning] : cases) EXPECT_EQ(meaningOf(arguments), meaning);
}

}  // namespace
