#pragma once
// A spreadsheet file being written: rows go to disk one by one, so that a long list needs no memory.

#include <memory>
#include <string>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace velmora::documents {

class Workbook {
  public:
    /// `scratch`: folder for the rows until the file is assembled. Error 75 when writing is not possible.
    Workbook(std::string path, std::string scratch);
    /// Writes nothing without `close`.
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    /// Adds a sheet named after the title, as far as allowed; sheets with the same title are numbered.
    lxw_worksheet* addSheet(const std::string& title);
    lxw_format* addFormat();
    /// Error 75 for any result of the library other than success.
    void check(int answer) const;
    void setTitle(const std::string& title);

    /// Assembles the file. Error 75, with the reason, when that fails.
    void close();

  private:
    /// Makes the library write numbers with a point, whatever the process's locale.
    class PlainNumbers;

    std::string path_;
    std::string scratch_;
    std::unique_ptr<PlainNumbers> plainNumbers_;
    lxw_workbook* book_ = nullptr;
    int sheets_ = 0;
};

}  // namespace velmora::documents
