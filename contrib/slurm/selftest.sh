#!/bin/bash
# Proves the job array on a real Slurm cluster of one node: installs Debian's
# slurm-wlm and munge when they are missing, starts munged, slurmctld and
# slurmd on this machine with their state, sockets and logs in a temporary
# folder (no cgroups: processes are tracked through /proc), submits a copy
# of the example project with four cases as a job array, waits for it,
# checks every case's module flags and result files, and stops the daemons
# it started, by their process ids. Run as root.
#
#   contrib/slurm/selftest.sh [zelmo command]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
zelmo=$(readlink -f "$(command -v "${1:-${ZELMO:-zelmo}}")")
tree=$(dirname "$zelmo")
example=$tree/ZELMOPROJ/Example
[ -d "$example" ] || { echo "selftest: no example project in $tree" >&2; exit 1; }

if ! command -v slurmctld > /dev/null || ! command -v munged > /dev/null; then
  DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends slurm-wlm munge
fi

work=$(mktemp -d /tmp/zelmo-slurm.XXXXXX)
chmod 755 "$work"
stop() {
  for pid_file in "$work/slurmd.pid" "$work/slurmctld.pid" "$work/munge/munged.pid"; do
    [ -s "$pid_file" ] && kill "$(cat "$pid_file")" 2> /dev/null || true
  done
  sleep 1
  rm -rf "$work"
}
trap stop EXIT
fail() {
  echo "selftest: $*" >&2
  for log in "$work"/slurmctld.log "$work"/slurmd.log; do
    [ -f "$log" ] && tail -n 20 "$log" >&2
  done
  exit 1
}

# munged as the munge user, with a key and a socket of its own.
mkdir -p "$work/munge"
dd if=/dev/urandom of="$work/munge/munge.key" bs=1024 count=1 status=none
chown -R munge:munge "$work/munge"
chmod 700 "$work/munge"
chmod 600 "$work/munge/munge.key"
runuser -u munge -- /usr/sbin/munged --force --key-file="$work/munge/munge.key" \
  --socket="$work/munge/munge.socket" --pid-file="$work/munge/munged.pid" \
  --log-file="$work/munge/munged.log" --seed-file="$work/munge/munged.seed"

# slurmctld and slurmd as root, on ports away from a cluster's defaults.
node=$(hostname -s)
mkdir -p "$work/state" "$work/spool"
cat > "$work/slurm.conf" << CONF
ClusterName=zelmotest
SlurmctldHost=$node(127.0.0.1)
SlurmUser=root
SlurmdUser=root
SlurmctldPort=16817
SlurmdPort=16818
AuthType=auth/munge
AuthInfo=socket=$work/munge/munge.socket
CredType=cred/munge
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd.pid
SlurmctldLogFile=$work/slurmctld.log
SlurmdLogFile=$work/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core
ReturnToService=2
MpiDefault=none
NodeName=$node NodeAddr=127.0.0.1 CPUs=$(nproc) State=UNKNOWN
PartitionName=zelmo Nodes=$node Default=YES MaxTime=INFINITE State=UP
CONF
export SLURM_CONF=$work/slurm.conf
/usr/sbin/slurmctld -f "$SLURM_CONF"
/usr/sbin/slurmd -f "$SLURM_CONF" -N "$node"
for _ in $(seq 60); do
  sinfo -h -o %T 2> /dev/null | grep -q idle && break
  sleep 1
done
sinfo -h -o %T | grep -q idle || fail "the node did not come up"

# The example project with four cases: its case and three copies of it.
project=$work/data/example
mkdir -p "$work/data"
cp -r "$example" "$project"
# The program tree keeps the example's libraries parked until it is activated.
for parked in "$project"/*_Temp; do
  [ -e "$parked" ] && mv "$parked" "${parked%_Temp}"
done
first=$(ls "$project" | grep -i '^case1$')
# As the demo's activation does: the case reads the tree's Denver year.
sed -i "s#^Climate/DenverCO(US)\.CLI\r\$#$tree/Climate/DenverCO(US).CLI\r#" "$project/$first/Site.inp"
: > "$project/CASES.LIB"
for n in 1 2 3 4; do
  [ "$n" = 1 ] || cp -r "$project/$first" "$project/case$n"
  printf 'case%s - Office room in Stockholm, variant %s\r\n' "$n" "$n" >> "$project/CASES.LIB"
done
[ "$("$zelmo" list-cases "$project" | wc -l)" = 4 ] || fail "list-cases does not give four cases"

ZELMO=$zelmo timeout 600 "$here/submit.sh" --wait "$project" --time=10 ||
  fail "the job array did not end well: $(cat "$project"/slurm-*.out 2> /dev/null)"

status=0
for n in 1 2 3 4; do
  dir=$(ls -d "$project"/* | grep -i "/case$n\$")
  flags=$(head -c 6 "$dir/THERMAL.INP")
  [ "$flags" = "------" ] || { echo "case$n: flags '$flags'" >&2; status=1; }
  for file in DAT1.DAT DAT2.DAT DAT3.DAT DAT4.DAT ECM.Dat PLOR.LIS NEB.LIS CORV.LIS FENT.LIS \
    DANE.LIS MUK.LIS; do
    [ -n "$(find "$dir" -maxdepth 1 -iname "$file")" ] || { echo "case$n: no $file" >&2; status=1; }
  done
  grep -q "runs case case$n" "$project"/slurm-*_*.out || { echo "case$n: no task ran it" >&2; status=1; }
done
[ "$status" = 0 ] || fail "the results are not complete"
echo "selftest: four cases run as a Slurm job array, every module ended well"
