// The program itself, from outside.

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>

#include <string>

namespace krv::designer {
namespace {

using ::testing::HasSubstr;

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

Outcome run(const QStringList& arguments) {
    QProcess program;
    program.start(KRV_DESIGNER, arguments);
    EXPECT_TRUE(program.waitForFinished(60'000));
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
            program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
}

QString connect() {
    return QStringLiteral("Provider=SQLite;Data Source=") + KRV_SAMPLE_DATABASE;
}

TEST(DesignerProgram, prints_help_and_version) {
    EXPECT_EQ(run({"--help"}).status, 0);
    EXPECT_THAT(run({"--help"}).output, HasSubstr("--screenshot"));
    EXPECT_THAT(run({"--version"}).output, HasSubstr("krvlist-designer "));
}

TEST(DesignerProgram, refuses_a_wrong_command_line) {
    const Outcome wrong = run({"--nonsense"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.errors, HasSubstr("unknown option --nonsense"));
}

TEST(DesignerProgram, builds_saves_and_prints_without_a_window) {
    const testing::TemporaryFolder folder;
    const QString file = QString::fromStdString(folder.file("clienti.krv"));
    const Outcome made =
        run({file, "--save", "--connect", connect(), "--source", "Clienti", "--build"});
    EXPECT_EQ(made.status, 0) << made.errors;
    EXPECT_TRUE(QFile::exists(file));
    const QString picture = QString::fromStdString(folder.file("picture.png"));
    const Outcome shown =
        run({file, "--print", "2", "--screenshot", picture, "--size", "900x600", "--dark"});
    EXPECT_EQ(shown.status, 0) << shown.errors;
    EXPECT_THAT(shown.output, HasSubstr("RecordSource = \"Clienti\""));
    EXPECT_THAT(shown.output, HasSubstr("\nIdCliente"));
    EXPECT_EQ(QImage(picture).size(), QSize(900, 600));
}

TEST(DesignerProgram, puts_any_property) {
    const Outcome shown = run({"--apply", "Cols=2", "--apply", "Caption(1)=Nome", "--print", "0"});
    EXPECT_EQ(shown.status, 0) << shown.errors;
    EXPECT_THAT(shown.output, HasSubstr("Caption1 = \"Nome\""));
    EXPECT_EQ(run({"--apply", "Nonsense=2", "--print", "0"}).status, 1);
    EXPECT_EQ(run({"--apply", "Caption(7)=x", "--print", "0"}).status, 1);
}

TEST(DesignerProgram, fails_with_the_line_of_a_damaged_file) {
    const testing::TemporaryFolder folder;
    const QString file = QString::fromStdString(folder.file("rotto.krv"));
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("Cols = 1\n\n= 3\n");
    damaged.close();
    const Outcome refused = run({file, "--print", "1"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("line 3: "));
    EXPECT_EQ(run({QString::fromStdString(folder.file("no.krv")), "--print", "1"}).status, 1);
}

TEST(DesignerProgram, fails_when_the_data_cannot_be_shown) {
    const Outcome refused = run({"--connect", connect(), "--source", "Nirgends", "--print", "1"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_FALSE(refused.errors.empty());
}

} // namespace
} // namespace krv::designer
