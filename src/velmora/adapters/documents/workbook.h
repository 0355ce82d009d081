#pragma once
// A spreadsheet file while it is being written: rows go to the disk one by one, so that a long list needs no memory.

#include <memory>
#include <string>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace velmora::documents {

class Workbook {
  public:
    /// `scratch` is the folder for the rows until the file is put together. Error 75 when there is no writing.
    Workbook(std::string path, std::string scratch);
    /// Without `close` nothing is written.
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    /// Names the sheet after the title as far as a sheet's name allows; sheets of one title are numbered.
    lxw_worksheet* addSheet(const std::string& title);
    lxw_format* addFormat();
    /// Error 75 for any answer of the library that is none of success.
    void check(int answer) const;
    void setTitle(const std::string& title);

    /// Puts the file together. Error 75, with the reason, when that fails.
    void close();

  private:
    /// Numbers go into the file with a point, whatever the process's locale.
    class PlainNumbers;

    std::string path_;
    std::string scratch_;
    std::unique_ptr<PlainNumbers> plainNumbers_;
    lxw_workbook* book_ = nullptr;
    int sheets_ = 0;
};

}  // namespace velmora::documents
