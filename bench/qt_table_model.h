#pragma once

#include <filesystem>
#include <memory>
#include <string>

class QSqlTableModel;

namespace zel::bench {

/// The toolkit's own table model on the postings of one person, sorted by day, as a program without record sets would
/// show them in a grid.
class QtPostings {
public:
    QtPostings(const std::filesystem::path& file, int person, bool durable);
    ~QtPostings();
    QtPostings(const QtPostings&) = delete;
    QtPostings& operator=(const QtPostings&) = delete;

    [[nodiscard]] int rows() const;
    /// Writes one cell and leaves the row.
    void editRemarks(int row, const std::string& text);

private:
    std::unique_ptr<QSqlTableModel> model_;
};

} // namespace zel::bench
