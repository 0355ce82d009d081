#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "velmora/platform/version.h"

namespace velmora::drive {
namespace {

struct Outcome {
    int status = -1;
    std::string output;  ///< standard output and standard error
};

/// Each case has a folder of its own.
class Drive : public ::testing::Test {
  protected:
    Drive() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velmora-drive-test-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
    }
    ~Drive() override { std::filesystem::remove_all(folder_); }

    std::string path(const std::string& name) const { return (folder_ / name).string(); }

    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }

    /// Runs the program with these command line options, with the script on its standard input.
    Outcome run(const std::string& options, const std::string& script) const {
        return outcomeOf(std::string(VELMORA_DRIVE) + " " + options + " < " + write("in.drive", script) + " 2>&1");
    }

    static Outcome outcomeOf(const std::string& command) {
        Outcome result;
        FILE* pipe = popen(command.c_str(), "r");
        if (pipe == nullptr) {
            return result;
        }
        std::array<char, 4096> part{};
        while (const std::size_t got = fread(part.data(), 1, part.size(), pipe)) {
            result.output.append(part.data(), got);
        }
        result.status = WEXITSTATUS(pclose(pipe));
        return result;
    }

  private:
    std::filesystem::path folder_;
};

TEST_F(Drive, PlaysTheStandardInputOnADemonstrationWorkshop) {
    const Outcome demo = run("", "query \"select count(*) n from CLI where CLI_ID > 0\"");
    EXPECT_EQ(demo.status, 0);
    EXPECT_TRUE(demo.output.starts_with("n\n")) << demo.output;
    EXPECT_NE(demo.output, "n\n0\n");
    EXPECT_EQ(run("--data demo -", "query \"select count(*) n from CLI where CLI_ID > 0\"").output, demo.output);
}

TEST_F(Drive, SaysItsVersion) {
    const Outcome version = run("--version", "");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "velmora-drive " + platform::version() + "\n");
}

TEST_F(Drive, ANewDatabaseCanBeEmpty) {
    EXPECT_EQ(run("--data none", "query \"select count(*) n from CLI\"").output, "n\n0\n");
}

TEST_F(Drive, AFileOfStatementsFillsADatabase) {
    const std::string rows = write("rows.sql",
                                   "-- two materials\n"
                                   "INSERT INTO materiales (mat_id, mat_pcs) VALUES (1, 0.05)\n\n"
                                   "INSERT INTO materiales (mat_id, mat_pcs) VALUES (2, 0.02)\n"
                                   "UPDATE materiales SET mat_pcs = 0.5 WHERE mat_id = 2\n");
    EXPECT_EQ(run("--data " + rows, "query \"select mat_id, mat_pcs from materiales order by mat_id\"").output,
              "mat_id\tmat_pcs\n1\t0.05\n2\t0.5\n");
}

TEST_F(Drive, AStatementThatIsRefusedEndsBeforeTheScript) {
    const std::string rows = write("rows.sql", "INSERT INTO nada (a) VALUES (1)\n");
    const Outcome refused = run("--data " + rows, "echo here");
    EXPECT_EQ(refused.status, 2);
    EXPECT_NE(refused.output.find("INSERT INTO nada (a) VALUES (1)"), std::string::npos) << refused.output;
    EXPECT_EQ(refused.output.find("here\n"), std::string::npos);
}

TEST_F(Drive, AFileKeepsItsRowsAndIsFilledOnce) {
    const std::string file = "--db " + path("taller.db");
    EXPECT_EQ(run(file + " --data none", "query \"INSERT INTO materiales (mat_id, mat_pcs) VALUES (7, 1)\"").status, 0);
    EXPECT_EQ(run(file, "query \"select mat_id from materiales\"").output, "mat_id\n7\n");
    EXPECT_EQ(run(file + " --data demo", "echo here").status, 2);

    const std::string more = write("more.sql", "INSERT INTO materiales (mat_id, mat_pcs) VALUES (8, 1)\n");
    EXPECT_EQ(run(file + " --data " + more, "query \"select mat_id from materiales order by mat_id\"").output,
              "mat_id\n7\n8\n");
}

TEST_F(Drive, TheClockStandsStillForTheDatabaseToo) {
    EXPECT_EQ(run("--data none --now \"2026-01-15 10:00:00\"", "query \"select getdate() hoy\"").output,
              "hoy\n2026-01-15 10:00:00\n");
}

TEST_F(Drive, OwnQueriesAreNotTraced) {
    EXPECT_EQ(run("--data none --trace-sql", "query \"select count(*) n from CLI\"").output, "n\n0\n");
}

TEST_F(Drive, ExitStatusTellsHowTheScriptEnded) {
    EXPECT_EQ(run("--data none", "echo fin").status, 0);
    EXPECT_EQ(run("--data none", "expect-query \"select count(*) from CLI\" 1").status, 1);
    EXPECT_EQ(run("--data none", "nonsense").status, 2);
    EXPECT_EQ(run("--data none", "echo \"open").output, "-: line 1: a quote is not closed\n");
}

TEST_F(Drive, AScriptNamesItsOwnOptionsAndTheCommandLineComesFirst) {
    write("rows.sql", "INSERT INTO CLI (CLI_ID, CLI_COD, CLI_NOM) VALUES (1, 7, 'SIETE')\n");
    const std::string script = write("own.drive",
                                     "# options: --data rows.sql --now \"2026-01-15 10:00:00\"\n"
                                     "query \"select CLI_NOM, getdate() as ahora from CLI\"\n");
    EXPECT_EQ(run(script, "").output, "CLI_NOM\tahora\nSIETE\t2026-01-15 10:00:00\n");
    EXPECT_EQ(run("--data none " + script, "").output, "CLI_NOM\tahora\n");
    EXPECT_EQ(run(write("wrong.drive", "# options: --nonsense\necho here\n"), "").status, 2);
}

TEST_F(Drive, AWrongCommandLineIsStatusTwo) {
    for (const char* options : {"--nonsense", "--now yesterday", "--now 2026-02-30", "--db a.db --dsn x", "--dsn x",
                                "--data /nowhere/rows.sql", "/nowhere/script.drive", "--db /nowhere/taller.db"}) {
        EXPECT_EQ(run(options, "echo here").status, 2) << options;
    }
    EXPECT_EQ(run("--help", "").status, 0);
}

TEST_F(Drive, AServerThatCannotBeOpenedIsRefusedWithTheReasonAndWithoutThePassword) {
    const Outcome refused = run("--dsn \"DRIVER=Ninguno;SERVER=taller;PWD=secreto\"", "echo here");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.output, testing::StartsWith("velmora-drive: --dsn: No se puede cargar el controlador ODBC."));
    EXPECT_THAT(refused.output, testing::Not(testing::HasSubstr("secreto")));
}

TEST_F(Drive, ThePasswordIsNotInTheListOfProcesses) {
    // The program reads its script from a pipe that stays empty for a while, and is looked at meanwhile.
    for (const std::string option : {"--dsn ", "--dsn="}) {
        const std::string text = option + "\"DRIVER=SQLite3;Database=" + path("servidor.db") + ";PWD=secreto\"";
        const std::string command = "sleep 3 | " + std::string(VELMORA_DRIVE) + " " + text +
                                    " & sleep 1; tr '\\0' ' ' < /proc/$!/cmdline; wait";
        EXPECT_THAT(outcomeOf(command).output,
                    testing::AllOf(testing::HasSubstr("velmora-drive --dsn"), testing::HasSubstr("*****"),
                                   testing::Not(testing::HasSubstr("secreto"))));
    }
}

TEST_F(Drive, AServersConnectionStringMayStandInAFile) {
    const std::string file = write("servidor.dsn", "DRIVER=SQLite3;Database=" + path("servidor.db") + "\n");
    EXPECT_EQ(run("--dsn " + file, "query \"select 1 as uno\"").output, "uno\n1\n");
    EXPECT_THAT(run("--dsn " + path("otro.dsn"), "").output, testing::HasSubstr("otro.dsn"));
}

TEST_F(Drive, OpensTheFormsOfTheWorkshopsOwnData) {
    const std::string file = write("secciones.csv", "Número;Nombre\n2;Corte\n3;Tallado\n");
    const Outcome typed = run("--data none",
                              "open tabla secciones\n"
                              "type txtCampo(0) 1\n"
                              "type txtCampo(1) Torno\n"
                              "key F5\n"
                              "file " +
                                  file +
                                  "\n"
                                  "press cmdImportar\n"
                                  "rows dbgFilas\n"
                                  "key F5\n"
                                  "rows dbgFilas\n"
                                  "file " +
                                  path("salida.csv") +
                                  "\n"
                                  "press cmdExportar\n");
    EXPECT_EQ(typed.status, 0) << typed.output;
    EXPECT_THAT(typed.output, testing::HasSubstr("1\tTorno\n2\tCorte\n3\tTallado\n"));
    EXPECT_TRUE(std::filesystem::exists(path("salida.csv")));
    EXPECT_EQ(run("", "open tabla colores").status, 2);
}

}  // namespace
}  // namespace velmora::drive
