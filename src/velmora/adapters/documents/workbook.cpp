#include "velmora/adapters/documents/workbook.h"

#include <cstdio>
#include <utility>

#include <locale.h>
#include <xlsxwriter.h>

#include "velmora/adapters/documents/cell_text.h"
#include "velmora/adapters/documents/files.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::documents {

// The library formats numbers by the thread's locale: a GUI toolkit sets the process's locale to the user's, and the
// file would contain commas instead of points.
class Workbook::PlainNumbers {
  public:
    PlainNumbers() : plain_(::newlocale(LC_ALL_MASK, "C", nullptr)), before_(::uselocale(plain_)) {}
    ~PlainNumbers() {
        ::uselocale(before_);
        ::freelocale(plain_);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

  private:
    locale_t plain_;
    locale_t before_;
};

namespace {

constexpr std::size_t longestSheetName = 31;
constexpr std::u32string_view refusedInSheetName = U"[]:*?/\\";

std::string sheetName(const std::string& title, int number) {
    std::u32string name = runtime::toCodePoints(cellText(title));
    for (char32_t& c : name) {
        c = c < U' ' || refusedInSheetName.find(c) != std::u32string_view::npos ? U' ' : c;
    }
    const std::string mark = number == 1 ? std::string() : " (" + runtime::CStr(std::int64_t{number}) + ")";
    std::string cut = runtime::Left(runtime::Trim(runtime::toUtf8(name)), longestSheetName - mark.size());
    // A sheet's name must not begin or end with an apostrophe.
    while (!cut.empty() && (cut.front() == '\'' || cut.front() == ' ')) {
        cut.erase(0, 1);
    }
    while (!cut.empty() && (cut.back() == '\'' || cut.back() == ' ')) {
        cut.pop_back();
    }
    return (cut.empty() ? "Hoja" : cut) + mark;
}

}  // namespace

Workbook::Workbook(std::string path, std::string scratch)
    : path_(std::move(path)), scratch_(std::move(scratch)), plainNumbers_(std::make_unique<PlainNumbers>()) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = scratch_.empty() ? nullptr : scratch_.data();
    options.use_zip64 = LXW_FALSE;
    book_ = workbook_new_opt(path_.c_str(), &options);
    if (book_ == nullptr) {
        refuseToWrite(path_, lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED));
    }
}

Workbook::~Workbook() {
    if (book_ == nullptr) {
        return;
    }
    // Freeing alone leaves the rows' scratch files open; only closing the book closes them.
    lxw_worksheet* sheet = nullptr;
    STAILQ_FOREACH(sheet, book_->worksheets, list_pointers) {
        if (sheet->optimize_tmpfile != nullptr) {
            std::fclose(std::exchange(sheet->optimize_tmpfile, nullptr));
        }
    }
    lxw_workbook_free(book_);
}

lxw_worksheet* Workbook::addSheet(const std::string& title) {
    lxw_worksheet* sheet = workbook_add_worksheet(book_, sheetName(title, ++sheets_).c_str());
    if (sheet == nullptr) {
        refuseToWrite(path_, lxw_strerror(LXW_ERROR_CREATING_TMPFILE));
    }
    return sheet;
}

lxw_format* Workbook::addFormat() {
    lxw_format* format = workbook_add_format(book_);
    if (format == nullptr) {
        refuseToWrite(path_, lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED));
    }
    return format;
}

void Workbook::check(int answer) const {
    if (answer != LXW_NO_ERROR) {
        refuseToWrite(path_, lxw_strerror(static_cast<lxw_error>(answer)));
    }
}

void Workbook::setTitle(const std::string& title) {
    std::string text = runtime::Left(cellText(title), 255);
    std::string company = "VELMORA";
    lxw_doc_properties properties{};
    properties.title = text.data();
    properties.author = company.data();
    workbook_set_properties(book_, &properties);
}

void Workbook::close() {
    // The library has released the book, whatever it returns.
    check(workbook_close(std::exchange(book_, nullptr)));
}

}  // namespace velmora::documents
