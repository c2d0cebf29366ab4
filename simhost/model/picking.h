// A pick that the host asks its user for: which items may be taken, and which were.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "simhost/model/selections.h"

namespace simhost {

class Session;

// A rectangle on the screen, between any two opposite corners.
struct ScreenBox {
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
};

class Picking {
public:
    // `filter`: words such as "part" with commas between them; at most `most` items, -1 any number.
    // `byBox`: the user may draw a box. Picks are made in the model of the current window, or in
    // the assembly that it manufactures.
    Picking(Session& session, const std::string& filter, int most, bool byBox);
    // The first word of a filter that no host knows; empty: it knows all.
    static std::string UnknownWord(const std::string& filter);

    // What is asked, for the user: "part, any number, or a box".
    std::string Question() const;
    bool byBox() const { return byBox_; }
    int most() const { return most_; }  // -1: any number
    bool Allows(ProType type) const;

    // --- Answers. One that is not allowed is no answer: what is wrong with it comes back as a
    // --- sentence for the user, who is asked again. Empty: it was taken.
    std::string Take(std::vector<Selection> items);
    // All that is shown and lies wholly in the box, in the order of the tree; what is covered by
    // something else, too. Of "prt_or_asm" the parts, not the assemblies that they are in.
    std::string TakeBox(const ScreenBox& box);
    // In a drawing: what is nearest to a point of the sheet, within 5 of it.
    std::string TakeAt(double x, double y);
    void TakeNothing() { answered_ = true; }
    void Leave() { answered_ = left_ = true; }

    // The first item on the screen that may be picked, none if there is none.
    std::vector<Selection> First() const;

    bool answered() const { return answered_; }
    bool left() const { return left_; }  // the user wants no pick at all
    const std::vector<Selection>& taken() const { return taken_; }

private:
    // At most so many of the items on the screen that may be picked; those in a box, or all. And of
    // those on the current sheet of a drawing.
    std::vector<Selection> OnScreen(const ScreenBox* box, std::size_t most) const;
    std::vector<Selection> OnSheet(Model& drawing, std::size_t most) const;

    Session& session_;
    std::string filter_;
    std::vector<ProType> types_;
    int most_;
    bool byBox_;
    bool answered_ = false, left_ = false;
    std::vector<Selection> taken_;
};

}  // namespace simhost
