package tovu.local.hub;

import io.netty.bootstrap.ServerBootstrap;
import io.netty.channel.Channel;
import io.netty.channel.ChannelInitializer;
import io.netty.channel.ChannelOption;
import io.netty.channel.ChannelPipeline;
import io.netty.channel.EventLoopGroup;
import io.netty.channel.WriteBufferWaterMark;
import io.netty.channel.nio.NioEventLoopGroup;
import io.netty.channel.socket.SocketChannel;
import io.netty.channel.socket.nio.NioServerSocketChannel;
import io.netty.handler.ssl.ClientAuth;
import io.netty.handler.ssl.SslContext;
import io.netty.handler.ssl.SslContextBuilder;
import io.netty.handler.ssl.SslHandler;
import io.netty.handler.ssl.SslProvider;
import io.netty.util.concurrent.Future;
import java.io.IOException;
import java.net.InetSocketAddress;
import java.security.GeneralSecurityException;
import java.security.cert.X509Certificate;
import java.util.List;
import java.util.Set;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicInteger;
import tovu.local.management.Manager;
import tovu.local.model.federation.Federations;
import tovu.local.model.port.Elsewhere;
import tovu.local.record.RecordedConnection;
import tovu.local.record.Recorder;
import tovu.local.watch.ClusterView;
import tovu.local.wire.Identity;

/** The process that federates of other processes meet in: it listens, and hosts their federations. */
final class Hub {
    private static final int GREETING_SECONDS = 10;
    private static final int GREATEST_GREETING = 1024;
    private static final int BACKLOG = 1024;
    private static final WriteBufferWaterMark MUCH_TO_WRITE = new WriteBufferWaterMark(1 << 20, 1 << 22);

    private final HubSettings settings;
    private final SslContext tls;
    private final EventLoopGroup listening = new NioEventLoopGroup(1);
    // A federation's services wait for each other, and frames that are written by one thread go together.
    private final EventLoopGroup serving =
            new NioEventLoopGroup(Math.max(1, Runtime.getRuntime().availableProcessors() / 2));
    private final ExecutorService apart = Executors.newCachedThreadPool();
    private final AtomicInteger servingLong = new AtomicInteger();
    private final Set<FederateChannel> federates = ConcurrentHashMap.newKeySet();
    private final AtomicInteger connections = new AtomicInteger();
    private final Cluster cluster;
    private final Federations federations;
    private final Recorder recorder; // null for none
    private Channel server;

    Hub(HubSettings settings, Cluster cluster) throws IOException {
        this.settings = settings;
        this.cluster = cluster;
        federations = new Federations(Manager::new, cluster.placement());
        tls = settings.certificate() == null ? null : tls();
        recorder = settings.recording() == null ? null : new Recorder(settings.recording());
    }

    private SslContext tls() throws IOException {
        try {
            SslContextBuilder builder = SslContextBuilder
                    .forServer(Identity.of(settings.certificate(), settings.key()))
                    .sslProvider(SslProvider.JDK).protocols("TLSv1.3", "TLSv1.2");
            if (settings.clientCa() != null) {
                builder.trustManager(Identity.certificates(settings.clientCa()).toArray(X509Certificate[]::new))
                        .clientAuth(ClientAuth.REQUIRE);
            }
            return builder.build();
        } catch (GeneralSecurityException e) {
            throw new IOException(e.getMessage(), e);
        }
    }

    HubSettings settings() {
        return settings;
    }

    Federations federations() {
        return federations;
    }

    ClusterView clusterView() {
        return cluster.view();
    }

    /** @return where it listens */
    InetSocketAddress start() throws IOException {
        try {
            server = new ServerBootstrap().group(listening, serving).channel(NioServerSocketChannel.class)
                    .option(ChannelOption.SO_BACKLOG, BACKLOG).option(ChannelOption.SO_REUSEADDR, true)
                    .childOption(ChannelOption.TCP_NODELAY, true)
                    .childOption(ChannelOption.WRITE_BUFFER_WATER_MARK, MUCH_TO_WRITE)
                    .childHandler(new ChannelInitializer<SocketChannel>() {
                        @Override
                        protected void initChannel(SocketChannel channel) {
                            begin(channel);
                        }
                    }).bind(settings.listen().socketAddress()).sync().channel();
            return (InetSocketAddress) server.localAddress();
        } catch (InterruptedException e) {
            Thread.currentThread().interrupt();
            throw new IOException(e);
        } catch (Exception e) { // the library throws what the system call has failed with, undeclared
            throw new IOException("cannot listen on " + settings.listen() + " (" + e.getMessage() + ")", e);
        }
    }

    private void begin(SocketChannel channel) {
        boolean isOneTooMany = connections.incrementAndGet() > settings.connections();
        channel.closeFuture().addListener(closed -> connections.decrementAndGet());
        ChannelPipeline pipeline = channel.pipeline();
        if (tls != null) {
            SslHandler handler = tls.newHandler(channel.alloc());
            handler.setHandshakeTimeout(GREETING_SECONDS, TimeUnit.SECONDS);
            pipeline.addLast(handler);
        }
        FederateChannel federate = new FederateChannel(this, channel);
        pipeline.addLast(federate.decoder(GREATEST_GREETING)); // who is not in yet makes the hub keep no more than that
        pipeline.addLast(federate);
        if (isOneTooMany) {
            federate.refuse("there are " + settings.connections() + " connections already");
        }
        federate.requireGreeting(GREETING_SECONDS);
    }

    /** Whether a service runs that takes its time. Others may have to wait for what it holds. */
    boolean isServingLong() {
        return servingLong.get() > 0;
    }

    /** @param address where federates reach it */
    void enterCluster(String address) throws IOException {
        cluster.enter(new Cluster.Member(address, federations, federates::size, this::expel));
    }

    /** A federation is to be created. */
    void place() throws Elsewhere {
        String other = cluster.leastLoaded();
        if (other != null) {
            throw new Elsewhere(other);
        }
    }

    private List<Future<?>> expel(String reason) {
        return List.copyOf(federates).stream().<Future<?>>map(each -> each.end(reason)).toList();
    }

    /** What takes what crosses the connection from that address. */
    RecordedConnection record(String address) {
        return recorder == null ? RecordedConnection.NONE : recorder.opened(address);
    }

    void serveLong(Runnable service) {
        servingLong.incrementAndGet();
        serveApart(() -> {
            try {
                service.run();
            } finally {
                servingLong.decrementAndGet();
            }
        });
    }

    /** For what may have to wait, which a thread of connections never does: others have the same thread. */
    void serveApart(Runnable service) {
        apart.execute(service);
    }

    void entered(FederateChannel federate) {
        federates.add(federate);
    }

    void left(FederateChannel federate) {
        federates.remove(federate);
    }

    /** Tells the federates that it ends, and ends. */
    void stop() {
        server.close().syncUninterruptibly();
        expel("the hub was shut down").forEach(each -> each.awaitUninterruptibly(1_000)); // or the end might come before
        serving.shutdownGracefully(0, 2, TimeUnit.SECONDS).syncUninterruptibly();
        listening.shutdownGracefully(0, 1, TimeUnit.SECONDS).syncUninterruptibly();
        apart.shutdownNow();
        cluster.leave();
        if (recorder != null) {
            recorder.close();
        }
    }
}
