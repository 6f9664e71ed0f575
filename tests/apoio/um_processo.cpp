#include <opencv2/core.hpp>

namespace {

// Death tests fork, which worker threads of the image library, left by other tests of the process,
// would not survive.
[[maybe_unused]] const bool semThreads = (cv::setNumThreads(1), true);

}  // namespace
