"""A host in Python without screens: reports events and sends them, until its last argument, a pipe, is written to.

Usage: host.py <liborrelo> <URL of the service> <its certificate> <data folder> <pipe>
"""
import ctypes
import json
import sys
import threading
from ctypes import CFUNCTYPE, c_bool, c_char_p, c_double, c_int32, c_int64, c_void_p

kit = ctypes.CDLL(sys.argv[1])
for name, result, arguments in [
    ("orrelo_status_text", c_char_p, [c_int32]),
    ("orrelo_last_error", c_char_p, []),
    ("orrelo_host_application_new", c_void_p, [c_char_p]),
    ("orrelo_host_application_set_data_directory", c_int32, [c_void_p, c_char_p]),
    ("orrelo_host_application_set_cache_directory", c_int32, [c_void_p, c_char_p]),
    ("orrelo_host_application_set_development_service", c_int32, [c_void_p, c_char_p, c_char_p]),
    ("orrelo_host_application_free", None, [c_void_p]),
    ("orrelo_install_posix_platform", c_int32, [c_void_p]),
    ("orrelo_config_new", c_void_p, [c_char_p]),
    ("orrelo_config_free", None, [c_void_p]),
    ("orrelo_initialize", c_int32, [c_void_p]),
    ("orrelo_user_new", c_void_p, [c_char_p]),
    ("orrelo_user_free", None, [c_void_p]),
    ("orrelo_set_user", c_int32, [c_void_p]),
    ("orrelo_values_new", c_void_p, []),
    ("orrelo_values_from_json", c_void_p, [c_char_p]),
    ("orrelo_values_set", c_int32, [c_void_p, c_char_p, c_void_p]),
    ("orrelo_values_set_bool", c_int32, [c_void_p, c_char_p, c_bool]),
    ("orrelo_values_set_integer", c_int32, [c_void_p, c_char_p, c_int64]),
    ("orrelo_values_set_number", c_int32, [c_void_p, c_char_p, c_double]),
    ("orrelo_values_set_text", c_int32, [c_void_p, c_char_p, c_char_p]),
    ("orrelo_values_free", None, [c_void_p]),
    ("orrelo_value_new_null", c_void_p, []),
    ("orrelo_send_event", c_int32, [c_char_p, c_void_p]),
    ("orrelo_flush", c_int32, [c_int64]),
    ("orrelo_diagnostics", c_void_p, [c_int32]),
    ("orrelo_value_get_text", c_char_p, [c_void_p, c_void_p]),
    ("orrelo_value_free", None, [c_void_p]),
    ("orrelo_set_push_token", c_int32, [c_char_p]),
    ("orrelo_run_loop_run", c_int32, []),
    ("orrelo_run_loop_stop", None, []),
]:
    function = getattr(kit, name)
    function.restype, function.argtypes = result, arguments

Task = CFUNCTYPE(None, c_void_p)
FetchCompletion = CFUNCTYPE(None, c_void_p, c_int32)
kit.orrelo_notification_arrived.argtypes = [c_void_p, FetchCompletion, c_void_p, Task]
UNSUPPORTED_VALUE, NOT_INITIALIZED, NO_DATA = 2, 3, 1


class Refused(Exception):
    """A call that returned a status; args[0] is its number."""


def check(status):
    if status != 0:
        reason = f"{kit.orrelo_status_text(status).decode()}: {kit.orrelo_last_error().decode()}"
        raise Refused(status, reason)


def expect(status, call):
    try:
        call()
    except Refused as refused:
        assert refused.args[0] == status, refused
        return refused.args[1]
    raise AssertionError(f"nothing was refused, instead of status {status}")


def with_values(values, use):
    handle = kit.orrelo_values_new()
    setters = {bool: kit.orrelo_values_set_bool, int: kit.orrelo_values_set_integer,
               float: kit.orrelo_values_set_number}
    for key, value in values.items():
        key = key.encode()
        if value is None:
            check(kit.orrelo_values_set(handle, key, kit.orrelo_value_new_null()))
        elif type(value) in setters:
            check(setters[type(value)](handle, key, value))
        else:
            check(kit.orrelo_values_set_text(handle, key, value.encode()))
    try:
        use(handle)
    finally:
        kit.orrelo_values_free(handle)


def send(name, **values):
    with_values(values, lambda handle: check(kit.orrelo_send_event(name.encode(), handle)))


def initialize(url, certificate, folder):
    host = kit.orrelo_host_application_new(b"com.example.python-host")
    check(kit.orrelo_host_application_set_data_directory(host, folder))
    check(kit.orrelo_host_application_set_cache_directory(host, folder))
    check(kit.orrelo_host_application_set_development_service(host, url, certificate))
    check(kit.orrelo_install_posix_platform(host))
    kit.orrelo_host_application_free(host)
    config = kit.orrelo_config_new(b"python-host")
    check(kit.orrelo_initialize(config))
    kit.orrelo_config_free(config)


def receive_notifications():
    """The kit completes the notifications that are its own, and lets go of every callback."""
    results, freed = [], []
    completion = FetchCompletion(lambda context, result: results.append(result))
    destroy = Task(lambda context: freed.append(True))
    for payload in (b'{"Orrelo": true}', b'{"aps": {"alert": "sale"}}'):
        values = kit.orrelo_values_from_json(payload)
        check(kit.orrelo_notification_arrived(values, completion, None, destroy))
        kit.orrelo_values_free(values)
    assert results == [NO_DATA], results
    assert len(freed) == 2, freed


def check_diagnostics():
    value = kit.orrelo_diagnostics(1)
    snapshot = json.loads(kit.orrelo_value_get_text(value, None))
    kit.orrelo_value_free(value)
    assert snapshot["isInitialized"] and snapshot["user"] == "민지", snapshot
    assert snapshot["environment"]["applicationKey"] == "python-host", snapshot
    assert snapshot["events"]["accepted"] >= 2 and snapshot["events"]["onTheirWay"] == 0, snapshot


def wait_for_end(path):
    with open(path):
        kit.orrelo_run_loop_stop()


def main(url, certificate, folder, end):
    expect(NOT_INITIALIZED, lambda: send("early"))
    initialize(url.encode(), certificate.encode(), folder.encode())
    user = kit.orrelo_user_new("민지".encode())
    check(kit.orrelo_set_user(user))
    kit.orrelo_user_free(user)
    send("purchase", item="blue shoes", price=39.9, count=2, gift=True)
    print("refused:", expect(UNSUPPORTED_VALUE, lambda: send("refused", nothing=None)))
    check(kit.orrelo_set_push_token(b"token of Python"))
    receive_notifications()
    check(kit.orrelo_flush(10000))
    check_diagnostics()
    waiting = threading.Thread(target=wait_for_end, args=[end])
    waiting.start()
    check(kit.orrelo_run_loop_run())
    waiting.join()
    print("done")


main(*sys.argv[2:])
