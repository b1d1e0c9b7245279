#pragma once

#include "ado/connection.h"
#include "raw_postgres.h"
#include "raw_sqlite.h"

#include <filesystem>
#include <memory>
#include <string>

namespace zel::bench {

/// 50,000 persons with their resources; 5,000 persons with 200 postings each.
enum class Content { ManyPersons, ManyPostings };

/// A database file with that content, made when it is first asked for and kept in $ZEL_BENCH_DATA (else beside the
/// program) for the next run.
[[nodiscard]] std::filesystem::path databaseFile(Content content);
/// The same with a plain index on person and day in place of the covering one.
[[nodiscard]] std::filesystem::path plainIndexFile();

/// One engine with a raw connection to the same database beside it.
class Rivals {
public:
    virtual ~Rivals() = default;
    [[nodiscard]] ado::Connection& connection() noexcept { return connection_; }
    [[nodiscard]] virtual raw_rows* read(const std::string& engineText, const int* keys, int keyCount) = 0;
    virtual void insertPosts(const std::string& engineText, int firstKey, int count) = 0;

protected:
    ado::Connection connection_;
};

/// `rawFile` is what the raw program opens, where it is another file than ours.
[[nodiscard]] std::unique_ptr<Rivals> sqliteRivals(const std::filesystem::path& file,
                                                   const std::filesystem::path& rawFile, bool durable = true);
/// On a server of its own, filled anew.
[[nodiscard]] std::unique_ptr<Rivals> postgresRivals(Content content);

} // namespace zel::bench
