#pragma once
// A flag that is set for the duration of a scope, exceptions included.

namespace velmora::toolkit {

class RaisedFlag {
  public:
    explicit RaisedFlag(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~RaisedFlag() { flag_ = before_; }
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;

  private:
    bool& flag_;
    bool before_;
};

}  // namespace velmora::toolkit
