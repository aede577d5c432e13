// Reads the text of a table into objects.

#ifndef TABLEFILE_TEXT_READER_H
#define TABLEFILE_TEXT_READER_H

#include "tablefile/buffer.h"
#include "tablefile/text_keys.h"
#include "tablefile/text_lines.h"

#include "odps/od_ps_impl.h"

#include <functional>
#include <memory>
#include <vector>

namespace tablefile
{

/// The group of one style in the text.
struct StyleGroup
{
    Span span;                  ///< from its opening line to the end of its closing line
    std::uint32_t number = 0;   ///< the number that names the group
    std::uint32_t position = 0; ///< of its style in Origin::styles
};

/// What a table was read from: all that a save needs to write back what has not been changed.
struct Origin : OdPsTableOrigin
{
    Buffer file;      ///< the file as it was
    Buffer textBytes; ///< its inflated text
    /// The values of the table's own keys; no span where a key is missing.
    std::array<Span, kTableKeys.size()> values;
    /// What stands between the first and the last line of the table's groups.
    std::array<Span, kTableGroups.size()> groups;
    /// The style groups as they follow one another in the text.
    std::vector<StyleGroup> styleGroups;
    /// The table's styles as they were read. They are the same objects that the table holds, so
    /// that a save finds out which of them have been added, deleted or moved.
    OdArray<OdPsPlotStylePtr> styles;

    std::string_view text() const noexcept { return textBytes.view(); }
    Span value(TableKey key) const { return values[indexOf(key)]; }
    Span group(TableGroup group) const { return groups[indexOf(group)]; }
};

/// The contents of a style's group.
struct StyleFields
{
    std::array<Span, kStyleKeys.size()> values; ///< no span where a key is missing
    OdPsPlotStyleData data;

    Span value(StyleKey key) const { return values[indexOf(key)]; }
};

/// Reads style groups. Most lines of a style repeat those of the style before it; the reader
/// remembers that one, and of a style with the same keys it reads only the values that differ.
class StyleReader
{
public:
    explicit StyleReader(std::string_view text)
        : m_text(text)
    {
    }

    /// Reads a group up to its end. @param lines stands on the opening line
    /// @return its contents, until another group is read
    /// @throw Error when a value is not what it must be
    const StyleFields& read(LineCursor& lines);

private:
    /// More lines than the group of any usual style has.
    static constexpr std::size_t kMostLines = 64;

    struct Line
    {
        std::uint32_t end;
        std::size_t key; ///< the number of keys where the line has none of them
    };

    bool readLikeLast(LineCursor& lines);
    void readAfresh(LineCursor& lines);
    void readColor();

    std::string_view m_text;
    StyleFields m_last;        ///< the style that was read last
    std::uint32_t m_begin = 0; ///< where the first line of its group begins
    /// The lines of its group, the closing one too; none where a line stands for more than itself:
    /// in a group within the group, or as the second of its key.
    std::vector<Line> m_lines;
};

/// The texts of a style.
struct StyleTexts
{
    std::wstring name;
    std::wstring localizedName;
    std::wstring description;
};

/// The values of a table's own keys.
struct TableValues
{
    std::wstring description;
    double scaleFactor = 1.0;
    bool applyScaleFactor = false;
    bool inches = false;
};

/// The memory that a style takes as the reader makes it, the lists that name it included.
std::size_t memoryUse(const OdPsPlotStyleImpl& style);

/// Makes a table of an origin's text, completes the origin and gives it to the table.
/// @throw Error when the text is not that of a table
OdPsPlotStyleTablePtr readTable(std::shared_ptr<Origin> origin);

/// Reads the values of the table's own keys; a missing one has the value of a new table.
/// @throw Error when a value is not what it must be
TableValues readTableValues(const Origin& origin);

/// Decodes the texts of a style's group. Where one of the two names is missing, the other stands
/// in for it. @param texts takes them; reused by the caller, which is quicker
void readStyleTexts(std::string_view text, const StyleFields& fields, StyleTexts& texts);

/// Names a style of a colour-dependent table that the text gives no name.
/// @param position 0-based
void nameColorStyle(StyleTexts& texts, std::size_t position);

/// Calls `row(number, value)` for the rows of a group whose keys are numbers.
/// @param group what stands between its first and its last line
void forEachRow(std::string_view text, Span group,
                const std::function<void(std::size_t, Span)>& row);

/// A real number of the text. @throw Error when it is none
double realAt(std::string_view text, Span value);
/// A lineweight that the text has no row for, by its 0-based position.
double defaultLineweight(std::size_t row);

} // namespace tablefile

#endif
