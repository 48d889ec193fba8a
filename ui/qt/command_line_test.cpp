#include "ui/qt/command_line.h"

#include <gtest/gtest.h>

namespace velta::qt {
namespace {

std::optional<ConsoleAnswer> Answer(const QStringList& arguments) {
  return AnswerOnConsole(QStringList("velta") + arguments, "1.2.3");
}

TEST(CommandLineTest, WithoutOptionsTheProgramStarts) { EXPECT_FALSE(Answer({}).has_value()); }

TEST(CommandLineTest, QtsOwnOptionsAreLeftToQt) {
  for (const QStringList& options : QList<QStringList>{{"-platform", "offscreen"},
                                                       {"--platform=xcb"},
                                                       {"-style", "fusion", "-reverse"},
                                                       {"-session", "10_20_30"},
                                                       {"-display", ":7"}}) {
    EXPECT_FALSE(Answer(options).has_value()) << options.join(' ').toStdString();
  }
}

TEST(CommandLineTest, SaysItsVersion) {
  for (const char* option : {"--version", "-v", "-version"}) {
    const auto answer = Answer({option});
    ASSERT_TRUE(answer.has_value()) << option;
    EXPECT_EQ(answer->text, "Velta 1.2.3\n");
    EXPECT_EQ(answer->exit_code, 0);
  }
}

TEST(CommandLineTest, SaysItsOptionsInCzech) {
  for (const char* option : {"--help", "-h"}) {
    const auto answer = Answer({option});
    ASSERT_TRUE(answer.has_value()) << option;
    EXPECT_TRUE(answer->text.startsWith("Použití: ")) << answer->text.toStdString();
    EXPECT_TRUE(
        answer->text.endsWith("Volby:\n"
                              "  -h, --help     Vypíše tuto nápovědu a skončí.\n"
                              "  -v, --version  Vypíše verzi programu a skončí.\n"))
        << answer->text.toStdString();
    EXPECT_EQ(answer->exit_code, 0);
  }
}

TEST(CommandLineTest, RefusesWhatItDoesNotKnow) {
  struct Row {
    QStringList arguments;
    const char* mistake;
  };
  for (const Row& row :
       {Row{{"--neznama"}, "Neznámá volba 'neznama'."},
        Row{{"--help", "--neznama"}, "Neznámá volba 'neznama'."}, Row{{"-x"}, "Neznámá volba 'x'."},
        Row{{"-platform"}, "Chybějící hodnota po '-platform'."},
        Row{{"faktura.txt"}, "Neočekávaný argument 'faktura.txt'."}}) {
    const auto answer = Answer(row.arguments);
    ASSERT_TRUE(answer.has_value()) << row.mistake;
    EXPECT_EQ(answer->text, QString(row.mistake) + "\nVolby programu vypíše velta --help\n");
    EXPECT_EQ(answer->exit_code, 1);
  }
}

}  // namespace
}  // namespace velta::qt
