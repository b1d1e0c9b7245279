#include "korvandb/demo.h"

#include "korvandb/ddl.h"
#include "korvandb/demo_world.h"

namespace zel::korvandb {

namespace {

/// Building the indexes once is many times faster than keeping them while a million rows come in.
class WithoutIndexes {
public:
    WithoutIndexes(ado::Engine& engine, const Table& table)
        : engine_(engine), table_(table), words_(ddlWords(engine.kind())) {
        for (const Index& index : table_.indexes)
            run(dropIndex(table_, index, *words_));
    }

    void rebuild() {
        for (const Index& index : table_.indexes)
            run(createIndex(table_, index, *words_));
    }

private:
    void run(const std::string& statement) { engine_.prepare(statement, true)->execute({}); }

    ado::Engine& engine_;
    const Table& table_;
    std::unique_ptr<DdlWords> words_;
};

void write(ado::Engine& engine, const DemoSize& size, const Progress& progress) {
    WithoutIndexes postings(engine, *theSchema().table("PersonsPost"));
    DemoWorld world(engine, size);
    writeIncidents(world);
    writeIndividuals(world);
    progress("persons", size.persons, size.persons);
    writeCrews(world);
    writeContracts(world);
    writePersonPostings(world, progress);
    writeContractPostings(world);
    writeDebits(world);
    world.finish();
    progress("indexes", 0, 1);
    postings.rebuild();
    progress("indexes", 1, 1);
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
    // Without figures on its tables this engine plans for a handful of rows; it would gather them by itself, but later.
    if (engine.kind() == ado::EngineKind::Postgres)
        engine.prepare("ANALYZE", true)->execute({});
}

} // namespace zel::korvandb
