// Runs the corvane tool as a separate process, as a script would, with the
// environment given, and takes its standard output, standard error and exit
// status.
#ifndef CORVANE_TESTS_CLI_RUN_H_
#define CORVANE_TESTS_CLI_RUN_H_

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace corvane::testing {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

// env: "NAME=value" entries put before the process's own; "NAME=" removes
// NAME.
inline Outcome RunToolAt(const std::string& tool, const std::vector<std::string>& args,
                         const std::vector<std::string>& env = {}) {
  std::vector<std::string> environment;
  for (char** e = environ; *e != nullptr; ++e) {
    const std::string entry = *e;
    bool replaced = false;
    for (const std::string& mine : env) {
      replaced = replaced || entry.compare(0, mine.find('=') + 1, mine, 0, mine.find('=') + 1) == 0;
    }
    if (!replaced) environment.push_back(entry);
  }
  for (const std::string& mine : env) {
    if (mine.back() != '=') environment.push_back(mine);
  }
  std::vector<std::string> argv_strings{tool};
  argv_strings.insert(argv_strings.end(), args.begin(), args.end());
  std::vector<char*> argv, envp;
  for (std::string& s : argv_strings) argv.push_back(s.data());
  argv.push_back(nullptr);
  for (std::string& s : environment) envp.push_back(s.data());
  envp.push_back(nullptr);

  char out_path[] = "/tmp/corvane-cli-out-XXXXXX";
  char err_path[] = "/tmp/corvane-cli-err-XXXXXX";
  const int out_fd = mkstemp(out_path);
  const int err_fd = mkstemp(err_path);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, out_fd, 1);
  posix_spawn_file_actions_adddup2(&actions, err_fd, 2);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  Outcome outcome;
  pid_t pid = 0;
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data()) == 0) {
    int status = 0;
    waitpid(pid, &status, 0);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  posix_spawn_file_actions_destroy(&actions);
  close(out_fd);
  close(err_fd);
  const auto slurp = [](const char* path) {
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    std::remove(path);
    return text.str();
  };
  outcome.out = slurp(out_path);
  outcome.err = slurp(err_path);
  return outcome;
}

// The tool as built.
inline Outcome RunTool(const std::vector<std::string>& args,
                       const std::vector<std::string>& env = {}) {
  return RunToolAt(CORVANE_CLI_PATH, args, env);
}

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_CLI_RUN_H_
