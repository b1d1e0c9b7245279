#pragma once

#include "ado/connection.h"
#include "kept_statements.h"
#include "raw_postgres.h"
#include "raw_sqlite.h"

#include <filesystem>
#include <memory>
#include <string>

namespace zel::bench {

/// 50,000 persons with their resources; then postings: 10,000 of 50 persons, 1,000,000 of 5,000 and of 50,000 persons,
/// 10,000,000 of 50,000.
enum class Content { ManyPersons, FewPostings, ManyPostings, ManyOfBoth, MostPostings };

/// A database file with that content, made when it is first asked for and kept in $ZEL_BENCH_DATA (else beside the
/// program) for the next run.
[[nodiscard]] std::filesystem::path databaseFile(Content content);
/// The same with a plain index on person and day in place of the covering one.
[[nodiscard]] std::filesystem::path plainIndexFile(Content content);
/// What postings with a plain index are called in the raw program's statements.
inline constexpr const char* plainTable = "PlainPost";

/// One engine with a raw connection to the same database beside it.
class Rivals {
public:
    virtual ~Rivals() = default;
    [[nodiscard]] ado::Connection& connection() noexcept { return connection_; }
    /// One more connection of ours.
    [[nodiscard]] virtual std::unique_ptr<ado::Engine> open() = 0;
    /// The raw program's statements that it keeps.
    [[nodiscard]] virtual KeptStatements& kept() = 0;
    [[nodiscard]] virtual raw_rows* read(const std::string& engineText, const int* keys, int keyCount) = 0;
    virtual void insertPosts(const std::string& engineText, int firstKey, int count) = 0;

protected:
    ado::Connection connection_;
};

/// `rawFile` is what the raw program opens, where it is another file than ours.
[[nodiscard]] std::unique_ptr<Rivals> sqliteRivals(const std::filesystem::path& file,
                                                   const std::filesystem::path& rawFile, bool durable = true);
/// On a server of its own, filled anew, with a second table of postings that has a plain index.
[[nodiscard]] std::unique_ptr<Rivals> postgresRivals(Content content);

} // namespace zel::bench
