#include "korvandb/demo.h"

#include "korvandb/ddl.h"
#include "korvandb/demo_world.h"

namespace zel::korvandb {

namespace {

/// Building an index once is many times faster than keeping it while a million rows come in.
class IndexesAside {
public:
    IndexesAside(ado::Engine& engine, std::vector<std::string> tables)
        : engine_(engine), tables_(std::move(tables)), words_(ddlWords(engine.kind())) {
        forEach([this](const Table& table, const Index& index) { run(dropIndex(table, index, *words_)); });
    }

    void rebuild(const Progress& progress) {
        std::int64_t built = 0;
        forEach([&](const Table& table, const Index& index) {
            progress("indexes", built++, 0);
            run(createIndex(table, index, *words_));
        });
    }

private:
    template <typename Work>
    void forEach(Work work) const {
        for (const std::string& name : tables_)
            for (const Index& index : theSchema().table(name)->indexes)
                work(*theSchema().table(name), index);
    }
    void run(const std::string& statement) { engine_.prepare(statement, true)->execute({}); }

    ado::Engine& engine_;
    std::vector<std::string> tables_;
    std::unique_ptr<DdlWords> words_;
};

void write(ado::Engine& engine, const DemoSize& size, const Progress& progress) {
    IndexesAside indexes(engine, {"Resources", "Persons", "PersonsPost", "PersonsDebit"});
    DemoWorld world(engine, size);
    writeIncidents(world);
    writeIndividuals(world, progress);
    writeCrews(world);
    writeContracts(world);
    writePersonPostings(world, progress);
    writeContractPostings(world);
    writeDebits(world);
    world.finish();
    indexes.rebuild(progress);
}

} // namespace

void fillDemo(ado::Engine& engine, const DemoSize& size, const Progress& progress) {
    engine.begin();
    try {
        write(engine, size, progress);
        engine.commit();
    } catch (...) {
        engine.rollback();
        throw;
    }
    // The server would do this by itself, but later: until then it plans for a handful of rows and reads the table
    // beside a wide index.
    if (engine.kind() == ado::EngineKind::Postgres)
        engine.prepare("VACUUM ANALYZE", true)->execute({});
}

} // namespace zel::korvandb
