# What makes a fault harder to use, in what users run. The sanitizers bring their own.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT KALMO_SANITIZE)
  add_compile_options(-fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  add_link_options(-Wl,-z,relro -Wl,-z,now)
  # Nor does a program say where it was built.
  add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()
