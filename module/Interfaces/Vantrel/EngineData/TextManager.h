#pragma once

#include <Corrade/Containers/StringView.h>

#include <Vantrel/EngineData/ComponentManager.h>
#include <Vantrel/EngineData/StringArray.h>

namespace VantrelEngine {

// Texts in the scene ("text"): what the pictures of their letters are made from. Material and font are indices of the
// scene's resources, 0 is none.
class CORRADE_VISIBILITY_EXPORT TextManager: public ComponentManager {
public:
    // Names by value.
    static const Corrade::Containers::StringView EnumValuesHorizontalAlignment[3];
    static const Corrade::Containers::StringView EnumValuesVerticalAlignment[4];
    static const Corrade::Containers::StringView EnumValuesEffect[2];

    explicit TextManager(std::size_t capacity = 0);

    // Raises the capacities to this many components and this many bytes of text.
    void allocate(std::size_t components, std::size_t textCapacity);

    // The storage, by component id.
    const StringArray& texts() const { return _texts; }
    // Bytes.
    std::size_t textSize(Id component) const { return text(component).size(); }
    // Valid until a text is set.
    Corrade::Containers::StringView text(Id component) const;
    // Whatever is set here and below makes the text dirty, as it is when it is new.
    void setText(Id component, Corrade::Containers::StringView text);

    // Indices into the names.
    Magnum::UnsignedByte horizontalAlignment(Id component) const { return settings(component).horizontalAlignment; }
    Magnum::UnsignedByte verticalAlignment(Id component) const { return settings(component).verticalAlignment; }
    Magnum::UnsignedByte effect(Id component) const { return settings(component).effect; }
    void setHorizontalAlignment(Id component, Magnum::UnsignedByte alignment);
    void setVerticalAlignment(Id component, Magnum::UnsignedByte alignment);
    void setEffect(Id component, Magnum::UnsignedByte effect);

    // Added to the distance of two letters, in heights of the font; factor for the distance of two lines.
    Magnum::Float characterSpacing(Id component) const { return settings(component).characterSpacing; }
    Magnum::Float lineSpacing(Id component) const { return settings(component).lineSpacing; }
    void setCharacterSpacing(Id component, Magnum::Float spacing);
    void setLineSpacing(Id component, Magnum::Float spacing);

    Id font(Id component) const { return settings(component).font; }
    void setFont(Id component, Id font);
    Id& material(Id component) { return _material[slot(component)]; }

    // Whether the pictures of the letters have to be laid out again.
    bool isDirty(Id component) const { return settings(component).isDirty; }
    void setAllDirty() { setDirty(true); }
    void resetDirty() { setDirty(false); }

private:
    struct Settings {
        Magnum::Float characterSpacing = 0.0f;
        Magnum::Float lineSpacing = 1.0f;
        Id font = 0;
        Magnum::UnsignedByte horizontalAlignment = 0;
        Magnum::UnsignedByte verticalAlignment = 0;
        Magnum::UnsignedByte effect = 0;
        bool isDirty = true;
    };

    const Settings& settings(Id component) const { return _settings[slot(component)]; }
    Settings& changed(Id component);
    void setDirty(bool dirty);

    Field<Settings> _settings{*this};
    Field<Id> _material{*this};
    StringArray _texts;
};

}
