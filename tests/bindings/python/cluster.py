"""Converts, groups and sums a table by Dask on a local cluster of two worker processes, one of which is
killed on the way, and compares all bits with one process.

    cluster.py [MEGABYTES [MEMORY OF A WORKER]]    20 and 400 by default
"""
import os
import pathlib
import signal
import sys
import tempfile
import threading
import time

try:
    import dask
    import dask.dataframe
    import distributed
    import numpy
    import pandas
except ImportError:
    sys.exit(77)
import trelvonunits
import trelvonunits.pandas

WIDTHS = numpy.random.default_rng(1).uniform(0, 1000, 200000)


def write_table(path, megabytes):
    rows = "".join(f"{index % 97},{width!r}\n" for index, width in enumerate(WIDTHS.tolist()))
    with open(path, "w", encoding="ascii") as table:
        table.write("group,width\n")
        for _ in range(max(1, megabytes * 10**6 // len(rows))):
            table.write(rows)


def bits(frame):
    """What tells all bits of a column, in any order."""
    return int(numpy.add.reduce(frame["width"].to_numpy().view("uint64")))


def work(path):
    """Sums of groups, and the bits of all converted numbers."""
    meters = trelvonunits.Engine().prepare("ft", "m")
    frame = dask.dataframe.read_csv(path, blocksize=8 * 2**20)
    frame = frame.map_partitions(trelvonunits.pandas.convert_columns, {"width": meters})
    return frame.groupby("group").width.sum(), frame.to_delayed()


def computed(path):
    sums, parts = work(path)
    sums, *parts = dask.compute(sums, *[dask.delayed(bits)(part) for part in parts])
    return sums.to_dict(), sum(parts) % 2**64, len(parts)


def kill_one(client, killed):
    """Ends a worker by its id when some of the work is done."""
    processes = client.run(os.getpid)
    while not any(client.run_on_scheduler(lambda dask_scheduler: [
            key for key, task in dask_scheduler.tasks.items() if task.state == "memory"])):
        time.sleep(0.05)
    killed.append(next(iter(processes.values())))
    os.kill(killed[0], signal.SIGKILL)


def on_cluster(path, workers, megabytes, with_a_kill):
    with distributed.LocalCluster(
            n_workers=workers, threads_per_worker=1, processes=True, host="127.0.0.1",
            dashboard_address=None, memory_limit=f"{megabytes}MB") as cluster, \
            distributed.Client(cluster) as client:
        assert all("//127.0.0.1:" in worker for worker in client.scheduler_info()["workers"])
        killed, start = [], time.monotonic()
        killer = threading.Thread(target=kill_one, args=(client, killed))
        if with_a_kill:
            killer.start()
        result = computed(path)
        seconds = time.monotonic() - start
        if with_a_kill:
            killer.join()
            assert killed and killed[0] not in client.run(os.getpid).values()
        return result, seconds


def main(megabytes="20", memory="400"):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "table.csv")
        write_table(path, int(megabytes))
        with dask.config.set(scheduler="synchronous"):
            expected = computed(path)
        size = os.path.getsize(path) / 1e6
        print(f"{size:.0f} MB in {expected[2]} parts, two workers of {memory} MB")
        for workers, with_a_kill in ((1, False), (2, False), (2, True)):
            result, seconds = on_cluster(path, workers, int(memory), with_a_kill)
            assert result == expected, "other bits"
            print(f"{workers} workers{', one killed' if with_a_kill else ''}: the same bits, "
                  f"{seconds:.1f} seconds", flush=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
