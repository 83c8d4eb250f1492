// Opens "documents" and highlights them. Isn't it nice?
#include <QString>
#include "documents/page.h"

/* A block comment:
   class inside = "quoted"; // 42
*/
namespace documents {

#define MAX(a, b) ((a) > (b) ? (a) : (b))

template<std::integral T>
concept Small = sizeof(T) <= 2 && requires(T t) { t + 1; };

enum class Kind : std::uint8_t { Image = 0, Text = 1 };

class Page final : public QGraphicsScene
{
    Q_OBJECT
public:
    explicit Page(Scrivara *window = nullptr);
    [[nodiscard]] bool load(const QString &name) override;

private:
    static constexpr double margin = 5.0e+1, thin = 0.5f, big = 1'000'000.0L;
    unsigned long long mask = 0xFFFF'0000ULL | 0b1010 | 0777;
    char mark = '\\', quote = '\'', wide = L'x', uni = u8'\u00e9';
};

bool Page::load(const QString &name)
{
    const auto text = R"(raw "text" // no comment)" + tr("It's \"quoted\"\n");
    const char *link = "http://example.org/*.html"; return true;
    if (name.isEmpty() /* never */) { co_return false; }
    // include/*.h is not the start of a comment
    for (auto it = m_items.begin(); it != m_items.end(); ++it) // every one
        delete *it; /* and
                       gone */
    auto shout = [this](int class_, int doubled) -> int { return class_ <=> doubled; };
    #if defined(Q_OS_WIN) && 0
    throw std::runtime_error{"no"};
    #endif
    return static_cast<bool>(text.size());
}

} // namespace documents
