// libvorbis' structures are lost by libsndfile 1.2 when it refuses an Ogg file, which is what some tests have
// it do. The name is that of a hook of the leak checker. NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:vorbis_info_init\n";
}
// NOLINTEND(bugprone-reserved-identifier)
