#include "scripture/BookFiles.h"

#include "platform/FileSystem.h"
#include "scripture/basStrings.h"

#include <QHash>
#include <filesystem>
#include <system_error>

namespace {

struct Stamp
{
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time{};
    bool operator==(const Stamp &) const = default;
};

struct Entry
{
    Stamp stamp;
    std::shared_ptr<BookFiles::Content> content;
};

QHash<QString, Entry> &cache()
{
    static QHash<QString, Entry> entries;
    return entries;
}

bool stampOf(const QString &path, Stamp &stamp)
{
    std::error_code ec;
    const std::filesystem::path p(path.toStdString());
    if (!std::filesystem::is_regular_file(p, ec))
        return false;
    stamp.size = std::filesystem::file_size(p, ec);
    if (ec)
        return false;
    stamp.time = std::filesystem::last_write_time(p, ec);
    return !ec;
}

std::shared_ptr<BookFiles::Content> load(const QString &path)
{
    if (!platform::IsUsablePath(path))
        return nullptr;
    const QString resolved = platform::ResolvePath(path);
    Stamp stamp;
    if (!stampOf(resolved, stamp)) {
        cache().remove(resolved);
        return nullptr;
    }
    auto it = cache().find(resolved);
    if (it != cache().end() && it->stamp == stamp)
        return it->content;
    std::optional<platform::TextFileContent> text = platform::ReadTextLines(resolved);
    if (!text)
        return nullptr;
    auto content = std::make_shared<BookFiles::Content>();
    content->lines = std::move(text->lines);
    cache().insert(resolved, Entry{stamp, content});
    return content;
}

} // namespace

std::shared_ptr<const BookFiles::Content> BookFiles::lines(const QString &path)
{
    return load(path);
}

std::shared_ptr<const BookFiles::Content> BookFiles::upperLines(const QString &path)
{
    std::shared_ptr<Content> content = load(path);
    if (content && content->upper.size() != content->lines.size()) {
        content->upper.clear();
        content->upper.reserve(content->lines.size());
        for (const QString &line : std::as_const(content->lines))
            content->upper.append(basStrings::UpperCase(line));
    }
    return content;
}

void BookFiles::forget(const QString &path)
{
    cache().remove(platform::ResolvePath(path));
}

void BookFiles::clear()
{
    cache().clear();
}
