#include "support/content.h"

#include "korvandb/create.h"
#include "korvandb/demo.h"

namespace zel::test {

ado::FillDatabase filling(Content content) {
    return [content](ado::Engine& engine) {
        korvandb::createTables(engine);
        if (content == Content::Demo)
            korvandb::fillDemo(engine, {}, [](std::string_view, std::int64_t, std::int64_t) {});
    };
}

} // namespace zel::test
