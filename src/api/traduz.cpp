#include "api/traduz.h"

#include <exception>
#include <new>
#include <opencv2/core.hpp>

#include "detect/procura.h"
#include "vorplex/error.h"

namespace api {

void relanca() {
  try {
    throw;
  } catch (const vorplex::Error&) {
    throw;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const detect::INTERROMPIDA&) {
    throw vorplex::Cancelled("cancelled");
  } catch (const cv::Exception& e) {
    if (e.code == cv::Error::StsNoMem) throw std::bad_alloc();
    throw vorplex::Error(e.what());
  } catch (const std::exception& e) {
    throw vorplex::Error(e.what());
  }
}

}  // namespace api
