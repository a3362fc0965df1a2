#pragma once

#include "Import/Converter/Model.h"

namespace VantrelImport {

// Which lights of a model throw shadows: files do not say so, and who imports a lit scene expects some. The first sun does;
// of models with few lights also points and spots whose range is known.
class Shadows {
public:
    // The model has to stay.
    explicit Shadows(const Model& model);

    // Expects a light of the model.
    bool has(const Light& light) const;
    // Metres, also of lights that throw none: that of the file, or one that covers the model from where all of it is seen.
    float range(const Light& light) const;

private:
    std::size_t _lights = 0;
    const Light* _sun = nullptr;
    float _diagonal;
};

// Of the box around all meshes where their objects are, metres. 0 where there are none.
float diagonal(const Model& model);

} // namespace VantrelImport
