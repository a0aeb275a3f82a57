// The controls of a window, without any window system: what they hold, where they stand and what a
// user can do to them. A window system shows them through a ControlObserver and passes the user's
// actions on as click() and typed().
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

class Form;

// 1/1440 inch.
using Twips = int;

struct Box {
    Twips left;
    Twips top;
    Twips width;
    Twips height;

    bool operator==(const Box&) const = default;
};

enum class ControlKind { Label, TextBox, OptionButton, CommandButton, PictureBox, Line };

enum class Property {
    Box,
    Caption,
    Text,
    Value,
    Enabled,
    Default,
    Visible,
    Focus,
    AccessibleName,
    AccessibleValue,
};

// The typefaces of the window, all Tahoma.
enum class Font { Normal, Congratulation, Title, Welcome };

// A colour by its role in the system's scheme.
enum class Colour { Face, Text, Shadow, Light, Highlight };

// Each kind of control is made from its design: its name, its place and how it looks at first. A
// picture's name must outlive the control; the texts are copied.
class Control {
public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    ControlKind kind() const noexcept { return kind_; }
    const std::string& name() const noexcept { return name_; }
    Form& form() const noexcept { return form_; }

    // The picture box that holds the control; null when it stands on the window itself.
    Control* parent() const noexcept { return parent_; }

    // The place within the parent.
    const Box& box() const noexcept { return box_; }
    void setBox(const Box& box);
    void setLeft(Twips left);
    void setWidth(Twips width);

    // "&" marks the mnemonic of a button's caption.
    const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string_view caption);

    // What a screen reader says instead of the caption; empty: it takes the caption, or the label
    // before a text box.
    const std::string& accessibleName() const noexcept { return accessibleName_; }
    void setAccessibleName(std::string_view name);

    // How far a progress line has come, for a screen reader. A label with a value is one.
    const std::string& accessibleValue() const noexcept { return accessibleValue_; }
    void setAccessibleValue(std::string_view value);

    bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);

    bool visible() const noexcept { return visible_; }
    void setVisible(bool visible);

    // Whether a user can act on the control: it and all that hold it are enabled and visible.
    bool reachable() const noexcept;

    // The controls of the same kind on the same parent, itself among them, in their order.
    std::vector<Control*> group() const;

    // What some kinds have; what stands here holds for the others.
    virtual const std::string& text() const noexcept { return caption_; }
    virtual Font font() const noexcept { return Font::Normal; }
    virtual Colour background() const noexcept { return Colour::Face; }
    virtual std::string_view picture() const noexcept { return {}; }  // of the program's resources
    virtual bool value() const noexcept { return false; }             // whether it is chosen
    virtual bool isDefault() const noexcept { return false; }         // whether Enter presses it

    // What a user does to some kinds: clicks it, which does nothing while it is out of reach, or
    // has typed into it, so that the screen need not be told. The others take no notice.
    virtual void click() {}
    virtual void typed(std::string_view) {}

protected:
    Control(Form& form, Control* parent, ControlKind kind, std::string_view name, const Box& box,
            std::string_view caption);

    void changed(Property property);

private:
    Form& form_;
    Control* parent_;
    ControlKind kind_;
    std::string name_;
    Box box_;
    std::string caption_;
    std::string accessibleName_;
    std::string accessibleValue_;
    bool enabled_ = true;
    bool visible_ = true;
};

class PictureBox : public Control {
public:
    struct Design {
        std::string_view name;
        Box box;
        std::string_view picture = {};  // of the program's resources; without one it holds controls
    };

    PictureBox(Form& form, const Design& design);

    std::string_view picture() const noexcept override { return picture_; }

private:
    std::string_view picture_;
};

// Whether the control is a box for others, a panel of the window.
bool isPanel(const Control& control) noexcept;

class Label : public Control {
public:
    struct Design {
        std::string_view name;
        Box box;
        std::string_view caption;
        Font font = Font::Normal;
        Colour background = Colour::Face;
    };

    Label(Control& parent, const Design& design);

    Font font() const noexcept override { return font_; }
    Colour background() const noexcept override { return background_; }

private:
    Font font_;
    Colour background_;
};

// A line, horizontal or vertical, one pixel wide; the box's height or width is 0.
class Line : public Control {
public:
    struct Design {
        std::string_view name;
        Box box;
        Colour colour = Colour::Text;
    };

    Line(Control& parent, const Design& design);

    Colour background() const noexcept override { return colour_; }

private:
    Colour colour_;
};

class TextBox : public Control {
public:
    struct Design {
        std::string_view name;
        Box box;
    };

    TextBox(Control& parent, const Design& design);

    const std::string& text() const noexcept override { return text_; }
    void setText(std::string_view text);

    void typed(std::string_view text) override { text_ = text; }

private:
    std::string text_;
};

// One of the options of its parent, of which at most one is on.
class OptionButton : public Control {
public:
    struct Design {
        std::string_view name;
        Box box;
        std::string_view caption;
    };

    OptionButton(Control& parent, const Design& design);

    bool value() const noexcept override { return value_; }

    // Turning an option on turns the others of its parent off.
    void setValue(bool on);

    void click() override;

private:
    bool value_ = false;
};

class CommandButton : public Control {
public:
    struct Design {
        std::string_view name;
        Box box;
        std::string_view caption;
        std::string_view picture = {};  // of the program's resources
    };

    CommandButton(Form& form, const Design& design);
    CommandButton(Control& parent, const Design& design);

    bool isDefault() const noexcept override { return default_; }
    void setDefault(bool isDefault);

    std::string_view picture() const noexcept override { return picture_; }

    void click() override;

    std::function<void()> onClick;

private:
    std::string_view picture_;
    bool default_ = false;
};

}  // namespace kv
