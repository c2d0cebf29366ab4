// Components that hold a text: input panels, text areas and option menus. Attributes of the
// resource:
//
//     (Name.Value   "M8")            ! the text at the beginning
//     (Name.Columns 20)              ! its width in characters
//     (Name.Rows    8)               ! text areas: its lines
//     (Kind.Names   "int" "real")    ! option menus: what can be chosen,
//     (Kind.Labels  "整数" "实数")    ! and the texts shown for them
#pragma once

#include <deque>

#include "simhost/ui/component.h"

namespace simhost {

class TextField : public Component {
public:
    TextField(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);

    WideText value;
    int columns() const { return columns_; }
    // The text at a place that lives as long as the dialog.
    WideChar* ValueForCaller();
    std::string State() const override;

protected:
    // ~ Input and ~ Update: the text as a whole.
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;
    void Resemble(const Component& other) override;

private:
    int columns_ = 20;
    std::deque<WideText> given_;
};

class InputPanel : public TextField {
public:
    static constexpr const char* kKind = "InputPanel";
    using TextField::TextField;
    DialogAction focusInAction;
    std::vector<std::string> Picture() const override;

protected:
    void ReceiveFocus() override;
};

class TextArea : public TextField {
public:
    static constexpr const char* kKind = "TextArea";
    TextArea(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);
    int rows() const { return rows_; }
    std::vector<std::string> Picture() const override;

protected:
    // As above; \n in the text is a line feed, \r for a carriage return, \\ for \.
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;

private:
    int rows_ = 5;
};

class OptionMenu : public TextField {
public:
    static constexpr const char* kKind = "OptionMenu";
    OptionMenu(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);
    const std::vector<std::string>& names() const { return names_; }
    const std::vector<std::string>& labels() const { return labels_; }
    std::vector<std::string> Picture() const override;
    std::string State() const override;

protected:
    // ~ Open, ~ Close; ~ Select with the name or the label of what is chosen.
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;

private:
    std::vector<std::string> names_, labels_;
};

}  // namespace simhost
