#pragma once

#include "app/model/AppModel.h"
#include "tests/app/support/HandClock.h"

#include <QTemporaryDir>
#include <memory>

namespace zelta::test {

/// A model on a database of its own, in a time that is moved by hand. Settings can be put into the store
/// before the model reads them:
///
///     TestModel test {{"module", "notes"}};
///     test.clock.advance(1500ms);
///     test.model.store().history(500);
struct TestModel
{
    using Settings = std::vector<std::pair<std::string_view, std::string_view>>;

    QTemporaryDir folder;
    HandClock clock;
    AppModel model;

    explicit TestModel(const Settings& settings = {})
        : model(makeStore(settings), clock)
    { }

private:
    [[nodiscard]] std::unique_ptr<Store> makeStore(const Settings& settings) const
    {
        auto store = std::make_unique<Store>(folder.filePath(QStringLiteral("test.sqlite")).toStdString());
        for (const auto& [key, value] : settings)
            store->setSetting(key, value);
        return store;
    }
};

} // namespace zelta::test
