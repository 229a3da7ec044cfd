// Finished texts, borders and backgrounds, kept by what they depend on.
#pragma once

#include "engine/render/face_key.hpp"
#include "engine/render/store.hpp"

namespace tessora::render {

// Valid until a script runs or another picture is kept.
struct Face {
  const Kept* kept = nullptr;
  double width = 0.0;
  double height = 0.0;
};

// The face under the key, if it is kept and may still be used.
const Face* find_face(const FaceKey& key);

// Whether a face that was just made is to be kept: it has been asked for before.
bool is_face_wanted(const FaceKey& key);
// Nothing when the surface cannot be kept.
const Face* keep_face(const FaceKey& key, host::Value surface, double width, double height);

// Whether the surface is a kept face, which nobody else may get to paint on.
bool is_kept_face(host::Value surface);

void drop_faces();

}  // namespace tessora::render
