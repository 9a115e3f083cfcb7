// One row of the list of printers, ready to be shown and searched.
#pragma once

#include <QString>
#include <string>

namespace kalmo {

struct Destination {
    enum class Kind { queue, folder };
    Kind kind = Kind::folder;
    std::string queue;
    QString text;    // as the list shows it
    QString status;  // the line below
    QString tip;     // all there is to say about it, in lines
    QString folded;  // all that a search looks at, as FoldedForSearch has it
    bool operator==(const Destination&) const = default;
};

}  // namespace kalmo
