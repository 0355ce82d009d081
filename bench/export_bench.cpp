// The export of a long list compared with the bare library writing the same cells: `ratio` is the export's time by the
// library's, the fastest of each, `cpu_ratio` the same for all processor time. `grown_kB` is the growth of the
// process during an export.

#include <algorithm>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <time.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include "velmora/adapters/documents/grid_sheet.h"
#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/paper/papers.h"
#include "velmora/platform/runtime/dates.h"

#include "workshop.h"

namespace velmora::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t columnCount = 14;

std::vector<screen::GridColumn> columns() {
    std::vector<screen::GridColumn> all;
    const char* masks[columnCount] = {"000000", "dd/mm/yyyy", "", "", "#,##0.00", "#,##0.00", "#,##0.00",
                                      "",       "",           "", "", "",         "",         ""};
    for (std::size_t i = 0; i < columnCount; ++i) {
        all.push_back({.field = static_cast<int>(i), .caption = "Columna", .mask = masks[i]});
    }
    return all;
}

/// The rows of a long list, each created on demand.
class LongList final : public sql::RowSource {
  public:
    explicit LongList(std::size_t count) : count_(count) {
        for (std::size_t i = 0; i < columnCount; ++i) {
            columns_.push_back({"c"});
        }
        row_ = {1,
                runtime::Date::of(2026, 1, 15),
                "MAQUINARIA TRIGOVERDÍN SA",
                "PL-36-B",
                15.02,
                26.22,
                218.7,
                25,
                12.7,
                7.75,
                8.51,
                20,
                "Piñon Especial",
                sql::Value()};
    }
    const std::vector<sql::Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override { return position < count_; }
    const sql::Row& row(std::size_t position) override {
        row_[0] = sql::Value(static_cast<std::int64_t>(position + 1));
        row_[6] = sql::Value(static_cast<double>(position) / 100);
        return row_;
    }
    std::size_t rowCount() override { return count_; }
    std::unique_ptr<sql::RowSource> reopen() const override { return std::make_unique<LongList>(count_); }

  private:
    std::size_t count_;
    std::vector<sql::Column> columns_;
    sql::Row row_;
};

void exportList(const std::string& path, const std::string& scratch, std::size_t rows) {
    sql::Recordset list(std::make_unique<LongList>(rows));
    documents::Workbook book(path, scratch);
    documents::GridSheet sheet(book, {.title = "Registro", .written = runtime::Date::of(2026, 1, 15)}, columns());
    require(sheet.write(list, [](std::size_t) { return true; }), "the export came to no end");
    book.close();
}

void bareLibrary(const std::string& path, std::string scratch, std::size_t rows) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = scratch.data();
    lxw_workbook* book = workbook_new_opt(path.c_str(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Registro");
    const auto masked = [book](const char* mask) {
        lxw_format* format = workbook_add_format(book);
        format_set_num_format(format, mask);
        return format;
    };
    lxw_format* number = masked("000000");
    lxw_format* date = masked("dd/mm/yyyy");
    lxw_format* amount = masked("#,##0.00");
    for (std::size_t i = 0; i < rows; ++i) {
        const auto row = static_cast<lxw_row_t>(i + 3);
        worksheet_write_number(sheet, row, 0, static_cast<double>(i + 1), number);
        worksheet_write_number(sheet, row, 1, 46037, date);
        worksheet_write_string(sheet, row, 2, "MAQUINARIA TRIGOVERDÍN SA", nullptr);
        worksheet_write_string(sheet, row, 3, "PL-36-B", nullptr);
        worksheet_write_number(sheet, row, 4, 15.02, amount);
        worksheet_write_number(sheet, row, 5, 26.22, amount);
        worksheet_write_number(sheet, row, 6, static_cast<double>(i) / 100, amount);
        worksheet_write_number(sheet, row, 7, 25, nullptr);
        worksheet_write_number(sheet, row, 8, 12.7, nullptr);
        worksheet_write_number(sheet, row, 9, 7.75, nullptr);
        worksheet_write_number(sheet, row, 10, 8.51, nullptr);
        worksheet_write_number(sheet, row, 11, 20, nullptr);
        worksheet_write_string(sheet, row, 12, "Piñon Especial", nullptr);
    }
    require(workbook_close(book) == LXW_NO_ERROR, "the bare library wrote nothing");
}

/// Resident memory of the process.
double residentKilobytes() {
    std::ifstream statm("/proc/self/statm");
    std::string total;
    std::string resident;
    statm >> total >> resident;
    double pages = 0;
    std::from_chars(resident.data(), resident.data() + resident.size(), pages);
    return pages * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1024;
}

struct Took {
    double seconds = 0;
    double fastest = 1e9;  ///< of one export
    double cpuSeconds = 0;
};

double cpuSeconds() {
    timespec used{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

template <typename Work>
void addTime(Took& took, const Work& work) {
    const auto start = Clock::now();
    const double cpu = cpuSeconds();
    work();
    took.cpuSeconds += cpuSeconds() - cpu;
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    took.seconds += seconds;
    took.fastest = std::min(took.fastest, seconds);
}

void ExportOfALongList(benchmark::State& state) {
    const auto rows = static_cast<std::size_t>(state.range(0));
    const support::TemporaryFolder folder;
    const std::string ours = folder.file("ours.xlsx");
    const std::string bare = folder.file("bare.xlsx");
    const std::string scratch = folder.file("");
    exportList(ours, scratch, 1000);
    const double before = residentKilobytes();
    Took own;
    Took library;
    for ([[maybe_unused]] const auto& turn : state) {
        addTime(own, [&] { exportList(ours, scratch, rows); });
        state.PauseTiming();
        addTime(library, [&] { bareLibrary(bare, scratch, rows); });
        state.ResumeTiming();
    }
    state.counters["ours_us"] = own.fastest * 1e6;
    state.counters["bare_us"] = library.fastest * 1e6;
    state.counters["ratio"] = own.fastest / library.fastest;
    state.counters["cpu_ratio"] = own.cpuSeconds / library.cpuSeconds;
    state.counters["grown_kB"] = residentKilobytes() - before;
    state.counters["rows_per_s"] =
        benchmark::Counter(static_cast<double>(rows) * static_cast<double>(state.iterations()) / own.seconds);
}

/// Both papers of a proposal, from its row to the files; `size_kB` is theirs together.
void PapersOfAProposal(benchmark::State& state) {
    const support::TemporaryFolder folder;
    const std::string file = folder.file("taller.db");
    makeDatabase(file, 0);
    const auto connection = sqlite::openDatabase(file);
    const std::int32_t number = connection->execute("select max(DPI_Id) from DPI where DPI_Tipo = 0")[0].toLong();
    support::NoServices services;
    painting::Graphics graphics;
    std::uintmax_t bytes = 0;
    const documents::PaperChoices choices{.folder = [&] { return folder.withSeparator(); },
                                          .view =
                                              [&](const std::vector<documents::PrintedPaper>& printed) {
                                                  bytes = 0;
                                                  for (const documents::PrintedPaper& one : printed) {
                                                      bytes += std::filesystem::file_size(one.path);
                                                  }
                                              }};
    for ([[maybe_unused]] const auto& turn : state) {
        documents::writeAndShow(paper::papersOf(*connection, number, false), services, graphics, choices);
    }
    require(bytes > 0, "no paper was written");
    state.counters["size_kB"] = static_cast<double>(bytes) / 1024;
}

BENCHMARK(PapersOfAProposal)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportOfALongList)->Arg(1'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExportOfALongList)->Arg(100'000)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace velmora::bench

BENCHMARK_MAIN();
